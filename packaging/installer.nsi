; The installer: for one user, who needs no administrator. packaging/release.py gives the definitions and makes files.nsh, in which
; every file stands by name, so that the uninstaller removes what was installed and nothing else.
;
; An installation is replaced in one go or left as it is. All that can fail is done first: the programs are asked for, the new files
; are unpacked into a folder beside the old ones. Then they take the old ones' places one by one, programs first.
;
; Silent (/S) it asks nothing and ends with a status:
;   0 done   1 given up by the user   2 a file cannot be unpacked   3 Windows is too old   4 the folder has a stranger's file
;   5 a program, or another setup, runs   6 a file cannot be replaced   7 the folder of /WORK= cannot be made
; After 1 to 5 and 7 nothing was changed; after 6 the next call goes on where this one stopped.
;   /D=FOLDER      where the programs go; the last option, without quotes
;   /WORK=FOLDER   where Quillon is started from the start menu, with its export folder

Target amd64-unicode
!include "FileFunc.nsh"
!include "LogicLib.nsh"
!include "MUI2.nsh"
!include "WinVer.nsh"
!include "${WORK}/files.nsh"

!define KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Quillon"
!define MENU "$SMPROGRAMS\Quillon"
!define NEW_NAME "quillon-setup.new"
!define NEW "$INSTDIR\${NEW_NAME}"
!define MARK "quillon-setup.old"
!define ERROR_ALREADY_EXISTS 183

Name "Quillon ${VERSION}"
OutFile "${OUT}"
InstallDir "$LOCALAPPDATA\Programs\Quillon"
InstallDirRegKey HKCU "${KEY}" "InstallLocation"
RequestExecutionLevel user
ManifestDPIAware true
ManifestSupportedOS Win10
SetDateSave off
SetOverwrite on
AllowSkipFiles off
BrandingText "Quillon ${VERSION}"
!ifdef SIGN
  !uninstfinalize '"${SIGN}" "%1"' = 0
!endif

Var OldFolder   ; of the installation that is there, if any
Var WorkFolder
Var WorkMade    ; the work folder whose export folder a setup has made
Var WorkGiven   ; the work folder was named in this call
Var MenuAnew    ; the start menu's entries are written even where they are there already
Var InUse
Var Stranger    ; a file with a name of ours that no setup has put there

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_DIRECTORYPAGE_TEXT_TOP "Quillon ${VERSION} is installed for you alone. An older version is replaced. Your reports and settings are kept elsewhere and stay as they are."
!define MUI_FINISHPAGE_RUN
!define MUI_FINISHPAGE_RUN_TEXT "Start Quillon"
!define MUI_FINISHPAGE_RUN_FUNCTION StartQuillon
!define MUI_PAGE_CUSTOMFUNCTION_LEAVE StayWhereAStrangerIs
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!define MUI_UNCONFIRMPAGE_TEXT_TOP "Quillon ${VERSION} is removed. Your reports and settings stay as they are."
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

VIProductVersion "${VERSION_NUMBERS}"
VIAddVersionKey /LANG=${LANG_ENGLISH} "ProductName" "Quillon"
VIAddVersionKey /LANG=${LANG_ENGLISH} "ProductVersion" "${VERSION}"
VIAddVersionKey /LANG=${LANG_ENGLISH} "FileDescription" "Quillon Setup"
VIAddVersionKey /LANG=${LANG_ENGLISH} "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=${LANG_ENGLISH} "LegalCopyright" "${PUBLISHER}"

; ---- Programs that run ----------------------------------------------------------------------------------------------------

; Windows lets nobody write to a program that runs. Whichever copy it is of which folder: this asks for the very files.
!macro LookAtProgram NAME
  ${If} ${FileExists} "$R0\${NAME}"
    ClearErrors
    FileOpen $R1 "$R0\${NAME}" a
    ${If} ${Errors}
      StrCpy $InUse "${NAME}"
    ${Else}
      FileClose $R1
    ${EndIf}
  ${EndIf}
!macroend

; Goes on when no program of the folder in $R0 runs. It is for the user to end one: a report may be on its way.
!macro FunctionAskToClose UN
Function ${UN}AskToClose
  again:
  StrCpy $InUse ""
  !insertmacro EachProgram LookAtProgram
  ${If} $InUse != ""
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$InUse is running, or may not be changed.$\r$\n$\r$\nClose it and press Retry. With Cancel everything stays as it is.$\r$\n$\r$\n$R0" /SD IDCANCEL IDRETRY again
    Call ${UN}CleanUp
    SetErrorLevel 5
    Quit
  ${EndIf}
FunctionEnd
!macroend
!insertmacro FunctionAskToClose ""
!insertmacro FunctionAskToClose "un."

Function CleanUp
  RMDir /r "${NEW}"
  RMDir "$INSTDIR"
FunctionEnd

Function un.CleanUp
FunctionEnd

; ---- Installation ---------------------------------------------------------------------------------------------------------

Function .onInit
  ${Unless} ${AtLeastWin10}
    MessageBox MB_OK|MB_ICONSTOP "Quillon needs Windows 10 or newer." /SD IDOK
    SetErrorLevel 3
    Quit
  ${EndUnless}
  ; Two at once would unpack into one folder. The handle is closed when this setup ends.
  System::Call 'kernel32::CreateMutexW(p 0, i 0, w "Local\QuillonSetup") p .R0 ?e'
  Pop $R1
  ${If} $R1 == ${ERROR_ALREADY_EXISTS}
    MessageBox MB_OK|MB_ICONEXCLAMATION "Another setup of Quillon is at work. Wait for it to end, and start this one again then." /SD IDOK
    SetErrorLevel 5
    Quit
  ${EndIf}
  ReadRegStr $OldFolder HKCU "${KEY}" "InstallLocation"
  ReadRegStr $WorkFolder HKCU "${KEY}" "WorkFolder"
  ReadRegStr $WorkMade HKCU "${KEY}" "WorkFolderMade"
  ${If} $WorkFolder == ""
    StrCpy $WorkFolder "$DOCUMENTS\Quillon"
  ${EndIf}
  ${GetParameters} $R0
  ClearErrors
  ${GetOptions} $R0 "/WORK=" $R1
  ${IfNot} ${Errors}
  ${AndIf} $R1 != ""
    StrCpy $WorkFolder $R1
    StrCpy $WorkGiven "yes"
    StrCpy $MenuAnew "yes"
  ${EndIf}
FunctionEnd

Function .onInstFailed
  Call CleanUp
FunctionEnd

Function StartQuillon
  SetOutPath "$WorkFolder"
  Exec '"$INSTDIR\quillon.exe"'
FunctionEnd

; The next line of the list $R1 comes to $R2, without its end. The error flag is set behind the last one.
Function ReadLine
  ClearErrors
  FileRead $R1 $R2
  IfErrors end  ; which takes the flag away
  trim:
  StrCpy $R3 $R2 1 -1
  ${If} $R3 == "$\n"
  ${OrIf} $R3 == "$\r"
    StrCpy $R2 $R2 -1
    Goto trim
  ${EndIf}
  ClearErrors
  Return
  end:
  SetErrors
FunctionEnd

; Opens the list of an installation as $R1. Another program may have one of the same name: without our first line it is none, and
; the error flag is set.
Function OpenList
  ClearErrors
  FileOpen $R1 "$INSTDIR\installed.txt" r
  IfErrors none
  Call ReadLine
  StrCmpS $R2 "${LIST_MARK}" over
  FileClose $R1
  none:
  SetErrors
  over:
FunctionEnd

; In an installation our names are ours to replace. In any other folder a file with one of them is somebody's own.
!macro LookForStranger NAME
  IfFileExists "$INSTDIR\${NAME}" 0 +3
  StrCpy $Stranger "${NAME}"
  Return
!macroend
Function FindStranger
  StrCpy $Stranger ""
  StrCmp $INSTDIR $OldFolder over
  Call OpenList
  IfErrors look
  FileClose $R1
  Return
  look:
  !insertmacro EachProgram LookForStranger
  !insertmacro EachOtherFile LookForStranger
  !insertmacro LookForStranger "installed.txt"
  !insertmacro LookForStranger "uninstall.exe"
  over:
FunctionEnd

Function StayWhereAStrangerIs
  Call FindStranger
  ${If} $Stranger != ""
    MessageBox MB_OK|MB_ICONEXCLAMATION "In this folder there is a file $Stranger that no setup of Quillon has put there. It would be replaced.$\r$\n$\r$\nChoose another folder, or move the file first.$\r$\n$\r$\n$INSTDIR" /SD IDOK
    Abort
  ${EndIf}
FunctionEnd

!macro MakeNewFolder NAME
  CreateDirectory "${NEW}\${NAME}"
!macroend
!macro MakeFolder NAME
  CreateDirectory "$INSTDIR\${NAME}"
!macroend
!macro Unpack NAME
  File "/oname=${NEW}\${NAME}" "${TREE}\${NAME}"
!macroend

; The new file $R2 takes the old one's place.
Function Place
  again:
  ClearErrors
  Delete "$INSTDIR\$R2"
  Rename "${NEW}\$R2" "$INSTDIR\$R2"
  ${If} ${Errors}
    MessageBox MB_RETRYCANCEL|MB_ICONSTOP "$R2 cannot be replaced: another program may have it open.$\r$\n$\r$\nClose that and press Retry. With Cancel a part of the older version stays; start this setup again then.$\r$\n$\r$\n$INSTDIR" /SD IDCANCEL IDRETRY again
    SetErrorLevel 6
    Abort
  ${EndIf}
FunctionEnd
!macro PlaceFile NAME
  StrCpy $R2 "${NAME}"
  Call Place
!macroend

; What an older version installed and this one does not have. Its list names the folders behind their files.
!macro SkipOwn NAME
  StrCmp $R2 "${NAME}" next
!macroend

; A name that leads out of the folder, or stands for many, is not of our making, whoever has written it into the list.
Function IsWithin
  ClearErrors
  StrCpy $R3 $R2 1
  StrCmp $R3 "\" no
  StrCpy $R4 0
  next:
  StrCpy $R3 $R2 1 $R4
  StrCmp $R3 "" yes
  StrCmp $R3 ":" no
  StrCmp $R3 "/" no
  StrCmp $R3 "*" no
  StrCmp $R3 "?" no
  StrCpy $R3 $R2 2 $R4
  StrCmp $R3 ".." no
  IntOp $R4 $R4 + 1
  Goto next
  no:
  SetErrors
  yes:
FunctionEnd
Function RemoveWhatIsNoLongerPart
  Call OpenList
  IfErrors over
  next:
  Call ReadLine
  IfErrors close
  StrCmp $R2 "" next
  !insertmacro EachProgram SkipOwn
  !insertmacro EachOtherFile SkipOwn
  Call IsWithin
  IfErrors next
  StrCpy $R3 $R2 1 -1
  ${If} $R3 == "\"
    RMDir "$INSTDIR\$R2"
  ${Else}
    Delete "$INSTDIR\$R2"
  ${EndIf}
  Goto next
  close:
  FileClose $R1
  over:
FunctionEnd

; The copy in another folder, when the user has chosen a new one.
Function RemoveOldFolder
  ExecWait '"$OldFolder\uninstall.exe" /S _?=$OldFolder' $R1
  ${If} $R1 == 0
    Delete "$OldFolder\uninstall.exe"
    RMDir "$OldFolder"
  ${EndIf}
FunctionEnd

; What the user has made of an entry, such as another folder to start in, stays at an upgrade.
!macro Entry NAME TARGET
  ${If} $MenuAnew == "yes"
  ${OrIfNot} ${FileExists} "${MENU}\${NAME}.lnk"
    CreateShortCut "${MENU}\${NAME}.lnk" "$INSTDIR\${TARGET}"
  ${EndIf}
!macroend

; Quillon looks for files in the export folder below the folder in which it is started, and writes its reports there. The folder of
; the programs is none for that: an upgrade or an uninstallation is no business of anybody's reports.
Function MakeWorkFolder
  ${If} ${FileExists} "$WorkFolder\export\*.*"
    Return
  ${EndIf}
  CreateDirectory "$WorkFolder\export"
  ${If} ${FileExists} "$WorkFolder\export\*.*"
    StrCpy $WorkMade $WorkFolder
  ${ElseIf} $WorkGiven == "yes"
    MessageBox MB_OK|MB_ICONSTOP "The folder $WorkFolder, in which Quillon is to be started, cannot be made. Nothing was changed." /SD IDOK
    Call CleanUp
    SetErrorLevel 7
    Quit
  ${Else}  ; such as a drive of the network that is away today: no reason to stay with an old version
    MessageBox MB_OK|MB_ICONEXCLAMATION "The folder $WorkFolder, in which the start menu starts Quillon, cannot be made. Quillon is installed all the same; make the folder, or change $\"Start in$\" among the properties of the start menu's entry." /SD IDOK
  ${EndIf}
FunctionEnd

Function WriteStartMenu
  CreateDirectory "${MENU}"
  SetOutPath "$WorkFolder"
  !insertmacro Entry "Quillon" "quillon.exe"
  !insertmacro Entry "Quillon Pages" "quillon-pages.exe"
  !insertmacro Entry "Quillon Guide" "guide\index.html"
  !insertmacro Entry "Quillon Samples" "samples\export"
  !insertmacro Entry "Uninstall Quillon" "uninstall.exe"
  SetOutPath "$TEMP"
FunctionEnd

Function WriteRegistry
  WriteRegStr HKCU "${KEY}" "DisplayName" "Quillon"
  WriteRegStr HKCU "${KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${KEY}" "Publisher" "${PUBLISHER}"
  WriteRegStr HKCU "${KEY}" "DisplayIcon" "$INSTDIR\quillon.exe"
  WriteRegStr HKCU "${KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${KEY}" "WorkFolder" "$WorkFolder"
  WriteRegStr HKCU "${KEY}" "WorkFolderMade" "$WorkMade"
  WriteRegStr HKCU "${KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${KEY}" "EstimatedSize" ${KILOBYTES}
  WriteRegDWORD HKCU "${KEY}" "NoModify" 1
  WriteRegDWORD HKCU "${KEY}" "NoRepair" 1
FunctionEnd

Section
  Call FindStranger
  ${If} $Stranger != ""  ; without a word, that is: the page does not let anybody come here
    SetErrorLevel 4
    Quit
  ${EndIf}
  StrCpy $R0 $INSTDIR
  Call AskToClose
  ${If} $OldFolder != ""
    StrCpy $R0 $OldFolder
    Call AskToClose
  ${EndIf}

  SetOutPath "$TEMP"  ; whatever folder setup was started in can go
  RMDir /r "${NEW}"
  ${If} $OldFolder != ""
    RMDir /r "$OldFolder\${NEW_NAME}"
  ${EndIf}
  CreateDirectory "${NEW}"
  ; One folder can have two names (a short one, a link, a drive's letter of one's own). Then nothing is to be removed from the old one.
  ${If} $OldFolder != ""
  ${AndIf} $OldFolder != $INSTDIR
  ${AndIf} ${FileExists} "$OldFolder\${NEW_NAME}\*.*"
    StrCpy $OldFolder $INSTDIR
    StrCpy $MenuAnew "yes"
  ${EndIf}
  !insertmacro EachFolder MakeNewFolder
  !insertmacro EachProgram Unpack
  !insertmacro EachOtherFile Unpack
  File "/oname=${NEW}\installed.txt" "${WORK}\installed.txt"
  ClearErrors
  WriteUninstaller "${NEW}\uninstall.exe"
  ${If} ${Errors}
    SetErrorLevel 2
    Abort
  ${EndIf}

  StrCpy $R0 $INSTDIR
  Call AskToClose
  Call MakeWorkFolder
  ${Unless} ${FileExists} "$INSTDIR\installed.txt"  ; from now on the folder is ours, even if this setup does not come to its end
    File "/oname=$INSTDIR\installed.txt" "${WORK}\installed.txt"
  ${EndUnless}
  !insertmacro EachFolder MakeFolder
  !insertmacro EachProgram PlaceFile
  !insertmacro EachOtherFile PlaceFile
  !insertmacro PlaceFile "uninstall.exe"
  Call RemoveWhatIsNoLongerPart
  !insertmacro PlaceFile "installed.txt"
  RMDir /r "${NEW}"

  ${If} $OldFolder != ""
  ${AndIf} $OldFolder != $INSTDIR
    StrCpy $MenuAnew "yes"
    Call RemoveOldFolder
  ${EndIf}
  Call WriteStartMenu
  Call WriteRegistry
SectionEnd

; ---- Uninstallation -------------------------------------------------------------------------------------------------------

!macro Remove NAME
  Delete "$INSTDIR\${NAME}"
!macroend
!macro RemoveFolder NAME
  RMDir "$INSTDIR\${NAME}"
!macroend
!macro RemoveEntry NAME
  Delete "${MENU}\${NAME}.lnk"
!macroend

Section Uninstall
  StrCpy $R0 $INSTDIR
  Call un.AskToClose

  ; The start menu may be another copy's. This one's folder may have another name there.
  ReadRegStr $R1 HKCU "${KEY}" "InstallLocation"
  StrCpy $R2 ""
  CreateDirectory "$INSTDIR\${MARK}"
  ${If} $R1 == $INSTDIR
  ${OrIf} ${FileExists} "$R1\${MARK}\*.*"
    StrCpy $R2 "own"
  ${EndIf}
  RMDir "$INSTDIR\${MARK}"

  !insertmacro EachProgram Remove
  !insertmacro EachOtherFile Remove
  Delete "$INSTDIR\installed.txt"
  Delete "$INSTDIR\uninstall.exe"
  !insertmacro EachFolderFromBelow RemoveFolder
  RMDir "$INSTDIR"

  ${If} $R2 == "own"
    !insertmacro RemoveEntry "Quillon"
    !insertmacro RemoveEntry "Quillon Pages"
    !insertmacro RemoveEntry "Quillon Guide"
    !insertmacro RemoveEntry "Quillon Samples"
    !insertmacro RemoveEntry "Uninstall Quillon"
    RMDir "${MENU}"
    ; Empty it is nobody's, unless it was there before: the workstation may leave its files in it.
    ReadRegStr $WorkFolder HKCU "${KEY}" "WorkFolderMade"
    ${If} $WorkFolder != ""
      RMDir "$WorkFolder\export"
      RMDir "$WorkFolder"
    ${EndIf}
    DeleteRegKey HKCU "${KEY}"
  ${EndIf}
SectionEnd
