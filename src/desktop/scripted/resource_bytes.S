/* The compiled resources as bytes of the program: the same that the Windows program carries as its own resources. */

#if defined(_WIN32)
	.section .rdata,"dr"
#else
	.section .rodata,"a"
#endif
	.balign 4
	.globl quillonResourcesStart
quillonResourcesStart:
	.incbin "quillon.res"
	.globl quillonResourcesEnd
quillonResourcesEnd:
	.byte 0

#if !defined(_WIN32)
	.section .note.GNU-stack,"",%progbits
#endif
