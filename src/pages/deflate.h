// A small compressor for the pages of a PDF: the zlib format, fixed codes, earlier text within 32 KB looked up. Report pages
// are mostly blanks and repeated columns, which this takes to about a third. The same bytes in give the same bytes out.
#pragma once

#include <string>
#include <string_view>

namespace quillon {

std::string deflated(std::string_view bytes);

}  // namespace quillon
