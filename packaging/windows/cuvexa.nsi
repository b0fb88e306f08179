# The setup for Windows. `build`, beside this, calls it with
#
#   VERSION  "0.2.0"; NUMBERS "0.2.0.0"
#   COMPRESSOR
#   STAGE    the folder that `stage` laid out
#   FILES    the generated lists of what is installed on every machine: macros install_files and delete_files
#   OUTPUT   the setup
#
# One program for both bitnesses: it runs as a 32-bit one and installs the 64-bit files where the machine takes them.
Unicode true
SetCompressor ${COMPRESSOR}
!include MUI2.nsh
!include FileFunc.nsh
!include LogicLib.nsh
!include Sections.nsh
!include WordFunc.nsh
!include x64.nsh
!include "${FILES}"

!define PRODUCT "{8A0F5C1E-6B3D-4E57-9D42-71C6B0E3A9F4}"
!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\${PRODUCT}"
!define APP_PATHS "Software\Microsoft\Windows\CurrentVersion\App Paths"

# What a setup or its undoing ends with.
!define FAILED 2
!define NO_RIGHTS 3
!define NEWER_IS_THERE 4
!define IN_USE 5
!define WRONG_SWITCH 6

!define MULTIUSER_MUI
!define MULTIUSER_NOUNINSTALL
!define MULTIUSER_EXECUTIONLEVEL Highest
!define MULTIUSER_INSTALLMODE_FUNCTION find_installed
!include MultiUser.nsh

Name "Cuvexa"
Caption "Cuvexa ${VERSION}"
UninstallCaption "Cuvexa ${VERSION}"
OutFile "${OUTPUT}"
BrandingText "Cuvexa ${VERSION}"
ManifestDPIAware true
ShowInstDetails nevershow
ShowUninstDetails nevershow
AllowSkipFiles off

!define MUI_ICON "${NSISDIR}/Contrib/Graphics/Icons/orange-install.ico"
!define MUI_UNICON "${NSISDIR}/Contrib/Graphics/Icons/orange-uninstall.ico"
!define MUI_ABORTWARNING
!define MUI_COMPONENTSPAGE_SMALLDESC
!define MUI_FINISHPAGE_NOAUTOCLOSE
!define MUI_FINISHPAGE_RUN
!define MUI_FINISHPAGE_RUN_TEXT "$(open_manual)"
!define MUI_FINISHPAGE_RUN_FUNCTION show_manual
!insertmacro MUI_PAGE_WELCOME
!insertmacro MULTIUSER_PAGE_INSTALLMODE
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE SpanishInternational  # the first one is for all others
!insertmacro MUI_LANGUAGE English
!include texts.nsi

VIProductVersion "${NUMBERS}"
VIFileVersion "${NUMBERS}"
!macro version_texts language description
    VIAddVersionKey /LANG=${language} CompanyName "Cuvexa"
    VIAddVersionKey /LANG=${language} FileDescription "${description}"
    VIAddVersionKey /LANG=${language} FileVersion "${VERSION}"
    VIAddVersionKey /LANG=${language} LegalCopyright ""
    VIAddVersionKey /LANG=${language} OriginalFilename "cuvexa-setup-${VERSION}.exe"
    VIAddVersionKey /LANG=${language} ProductName "Cuvexa"
    VIAddVersionKey /LANG=${language} ProductVersion "${VERSION}"
!macroend
!insertmacro version_texts ${LANG_SPANISHINTERNATIONAL} "Cuvexa - Instalación"
!insertmacro version_texts ${LANG_ENGLISH} "Cuvexa - Setup"

Var Asked_folder      # the one of /D=
Var Installed         # the folder of what is installed for the same people; empty when nothing is
Var Made_folder       # the topmost folder that an installation had to make, which goes with it
Var Whom              # as the libraries are told: machine or user
Var Left              # a library that could not be unregistered
Var Suite             # whether CuvexaSuite.dll is there, or wanted

# ---- Both directions -----------------------------------------------------------------------------------------------

# Ends with that code. Whoever sits before the screen is told why.
!macro end_with code text
    MessageBox MB_OK|MB_ICONSTOP "${text}" /SD IDOK
    SetErrorLevel ${code}
    Abort "${text}"
!macroend

# A library that a program has loaded cannot be written, nor deleted.
!macro expect_unused file
    ${If} ${FileExists} "${file}"
        ClearErrors
        FileOpen $1 "${file}" a
        ${If} ${Errors}
            StrCpy $0 "${file}"
        ${Else}
            FileClose $1
        ${EndIf}
    ${EndIf}
!macroend

!macro expect_all_unused folder
    StrCpy $0 ""
    !insertmacro expect_unused "${folder}\x64\Cuvexa.dll"
    !insertmacro expect_unused "${folder}\x64\CuvexaSuite.dll"
    !insertmacro expect_unused "${folder}\x86\Cuvexa.dll"
    !insertmacro expect_unused "${folder}\x86\CuvexaSuite.dll"
    !insertmacro expect_unused "${folder}\cuvexa.exe"
    ${If} $0 != ""
        !insertmacro end_with ${IN_USE} "$(in_use)"
    ${EndIf}
!macroend

# remove_folders FOLDER TOP: the empty ones among FOLDER and those above it, up to TOP; none when TOP is empty.
!macro remove_folders folder top
    StrCpy $0 "${folder}"
    ${If} "${top}" != ""
        ${Do}
            RMDir "$0"
            ${If} $0 == "${top}"
            ${OrIf} $0 == ""
                ${Break}
            ${EndIf}
            ${GetParent} "$0" $0
        ${Loop}
    ${EndIf}
!macroend

# regsvr32 BITS SWITCHES FILE: its status in $0. What is said to be 64 exists on a machine of 64 bits alone.
!macro regsvr32 bits switches file
    ClearErrors
    !if ${bits} = 64
        ExecWait '"$WINDIR\Sysnative\regsvr32.exe" /s ${switches} "${file}"' $0
    !else
        ExecWait '"$SYSDIR\regsvr32.exe" /s ${switches} "${file}"' $0
    !endif
    ${If} ${Errors}
        StrCpy $0 -1  # it did not run at all
    ${EndIf}
!macroend

# ---- Installing ----------------------------------------------------------------------------------------------------

Section "$(component)" component
    SectionIn RO
    Call expect_older
    Call remove_installed
    Call find_made_folder
    ClearErrors
    !insertmacro install_files
    SetOutPath "$INSTDIR\x86"
    File "${STAGE}/x86/Cuvexa.dll"
    ${If} ${RunningX64}
        SetOutPath "$INSTDIR\x64"
        File "${STAGE}/x64/Cuvexa.dll"
        SetOutPath "$INSTDIR"
        File "${STAGE}/x64/cuvexa.exe"
    ${Else}
        SetOutPath "$INSTDIR"
        File "${STAGE}/x86/cuvexa.exe"
    ${EndIf}
    WriteUninstaller "$INSTDIR\uninstall.exe"
    ${If} ${Errors}
        Call take_back
    ${EndIf}
    Call write_registry
    Call write_start_menu
    StrCpy $1 Cuvexa.dll
    Call register
SectionEnd

Section /o "$(suite)" suite
    ClearErrors
    SetOutPath "$INSTDIR\x86"
    File "${STAGE}/x86/CuvexaSuite.dll"
    ${If} ${RunningX64}
        SetOutPath "$INSTDIR\x64"
        File "${STAGE}/x64/CuvexaSuite.dll"
    ${EndIf}
    ${If} ${Errors}
        Call take_back
    ${EndIf}
    WriteRegDWORD SHCTX "${UNINSTALL}" Suite 1
    StrCpy $1 CuvexaSuite.dll
    Call register
SectionEnd

Section "-size"
    ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
    WriteRegDWORD SHCTX "${UNINSTALL}" EstimatedSize $0
SectionEnd

!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
    !insertmacro MUI_DESCRIPTION_TEXT ${component} "$(about_component)"
    !insertmacro MUI_DESCRIPTION_TEXT ${suite} "$(about_suite)"
!insertmacro MUI_FUNCTION_DESCRIPTION_END

Function .onInit
    StrCpy $Asked_folder $INSTDIR
    ${If} ${RunningX64}
        SetRegView 64
    ${EndIf}
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 /LANG= $1
    ${IfNot} ${Errors}
        ${If} $1 == es
            StrCpy $LANGUAGE ${LANG_SPANISHINTERNATIONAL}
        ${ElseIf} $1 == en
            StrCpy $LANGUAGE ${LANG_ENGLISH}
        ${Else}
            !insertmacro end_with ${WRONG_SWITCH} "$(wrong_language)"
        ${EndIf}
    ${EndIf}
    ClearErrors
    ${GetOptions} $0 /SUITE $1
    ${IfNot} ${Errors}
        StrCpy $Suite 1
    ${EndIf}
    !insertmacro MULTIUSER_INIT
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 /ALLUSERS $1
    ${IfNot} ${Errors}
        StrCpy $Whom machine
    ${EndIf}
    ClearErrors
    ${GetOptions} $0 /CURRENTUSER $1
    ${IfNot} ${Errors}
        ${If} $Whom == machine
            !insertmacro end_with ${WRONG_SWITCH} "$(contradiction)"
        ${EndIf}
        Call MultiUser.InstallMode.CurrentUser
    ${ElseIf} $Whom == machine
        ${If} $MultiUser.InstallMode != AllUsers
            !insertmacro end_with ${NO_RIGHTS} "$(no_rights)"
        ${EndIf}
    ${EndIf}
FunctionEnd

# What is there for everybody, or for the user: who it is for was just settled.
Function find_installed
    ReadRegStr $Installed SHCTX "${UNINSTALL}" InstallLocation
    ReadRegStr $Made_folder SHCTX "${UNINSTALL}" MadeFolder
    ReadRegDWORD $0 SHCTX "${UNINSTALL}" Suite
    ${If} $0 = 1
    ${OrIf} $Suite == 1
        !insertmacro SelectSection ${suite}
    ${Else}
        !insertmacro UnselectSection ${suite}
    ${EndIf}
    ${If} $Asked_folder != ""
        StrCpy $INSTDIR $Asked_folder
    ${ElseIf} $Installed != ""
        StrCpy $INSTDIR $Installed
    ${ElseIf} $MultiUser.InstallMode == CurrentUser
        StrCpy $INSTDIR "$LOCALAPPDATA\Programs\Cuvexa"
    ${ElseIf} ${RunningX64}
        StrCpy $INSTDIR "$PROGRAMFILES64\Cuvexa"
    ${Else}
        StrCpy $INSTDIR "$PROGRAMFILES\Cuvexa"
    ${EndIf}
FunctionEnd

Function expect_older
    ReadRegStr $0 SHCTX "${UNINSTALL}" DisplayVersion
    ${If} $0 != ""
        ${VersionCompare} $0 "${VERSION}" $1
        ${If} $1 = 1
            !insertmacro end_with ${NEWER_IS_THERE} "$(newer_is_there)"
        ${EndIf}
    ${EndIf}
    !insertmacro expect_all_unused "$INSTDIR"
FunctionEnd

# What was installed goes first, by its own undoing, which knows its files.
Function remove_installed
    ${If} $Installed == ""
    ${OrIfNot} ${FileExists} "$Installed\uninstall.exe"
        StrCpy $Made_folder ""
        Return
    ${EndIf}
    ExecWait '"$Installed\uninstall.exe" /S _?=$Installed' $0
    ${If} $0 = ${IN_USE}
        StrCpy $0 $Installed
        !insertmacro end_with ${IN_USE} "$(in_use)"
    ${ElseIf} $0 != 0
        !insertmacro end_with ${FAILED} "$(failed)"
    ${EndIf}
    Delete "$Installed\uninstall.exe"
    !insertmacro remove_folders $Installed $Made_folder
FunctionEnd

# A folder that an earlier version had to make, and whose foreign files held it, was made by an installation all the same.
Function find_made_folder
    ${If} $Installed == $INSTDIR
    ${AndIf} $Made_folder != ""
        Return
    ${EndIf}
    StrCpy $Made_folder ""
    StrCpy $0 $INSTDIR
    ${DoUntil} $0 == ""
        ${If} ${FileExists} "$0\*.*"
            ${Break}
        ${EndIf}
        StrCpy $Made_folder $0
        ${GetParent} "$0" $0
    ${Loop}
FunctionEnd

Function write_registry
    ${If} $MultiUser.InstallMode == CurrentUser
        StrCpy $Whom user
    ${Else}
        StrCpy $Whom machine
    ${EndIf}
    WriteRegStr SHCTX "${UNINSTALL}" DisplayName "Cuvexa"
    WriteRegStr SHCTX "${UNINSTALL}" DisplayVersion "${VERSION}"
    WriteRegStr SHCTX "${UNINSTALL}" DisplayIcon "$INSTDIR\uninstall.exe"
    WriteRegStr SHCTX "${UNINSTALL}" Publisher "Cuvexa"
    WriteRegStr SHCTX "${UNINSTALL}" InstallLocation "$INSTDIR"
    WriteRegStr SHCTX "${UNINSTALL}" UninstallString '"$INSTDIR\uninstall.exe"'
    WriteRegStr SHCTX "${UNINSTALL}" QuietUninstallString '"$INSTDIR\uninstall.exe" /S'
    WriteRegStr SHCTX "${UNINSTALL}" ProductCode "${PRODUCT}"
    WriteRegStr SHCTX "${UNINSTALL}" MadeFolder "$Made_folder"
    WriteRegDWORD SHCTX "${UNINSTALL}" NoModify 1
    WriteRegDWORD SHCTX "${UNINSTALL}" NoRepair 1
    WriteRegStr SHCTX "${APP_PATHS}\cuvexa.exe" "" "$INSTDIR\cuvexa.exe"
FunctionEnd

Function write_start_menu
    SetOutPath "$INSTDIR"  # where what they start begins
    CreateDirectory "$SMPROGRAMS\Cuvexa"
    CreateShortcut "$SMPROGRAMS\Cuvexa\$(demonstration).lnk" "$INSTDIR\demo.cmd"
    CreateShortcut "$SMPROGRAMS\Cuvexa\$(command_line).lnk" "$SYSDIR\cmd.exe" '/k set "PATH=$INSTDIR;%PATH%"'
    CreateShortcut "$SMPROGRAMS\Cuvexa\Manual.lnk" "$INSTDIR\manual\index.html"
FunctionEnd

# The library named in $1, for each bitness.
Function register
    !insertmacro regsvr32 32 "/n /i:$Whom" "$INSTDIR\x86\$1"
    ${If} $0 = 0
    ${AndIf} ${RunningX64}
        !insertmacro regsvr32 64 "/n /i:$Whom" "$INSTDIR\x64\$1"
    ${EndIf}
    ${If} $0 <> 0
        Call take_back
    ${EndIf}
FunctionEnd

# Half an installation is none.
Function take_back
    ExecWait '"$INSTDIR\uninstall.exe" /S _?=$INSTDIR'
    Delete "$INSTDIR\uninstall.exe"
    !insertmacro remove_folders $INSTDIR $Made_folder
    !insertmacro end_with ${FAILED} "$(failed)"
FunctionEnd

Function show_manual
    ExecShell open "$INSTDIR\manual\index.html"
FunctionEnd

# ---- Undoing it ----------------------------------------------------------------------------------------------------

# Whoever it was installed for: the folder tells it.
Function un.onInit
    ${If} ${RunningX64}
        SetRegView 64
    ${EndIf}
    SetShellVarContext current
    ReadRegStr $0 SHCTX "${UNINSTALL}" InstallLocation
    ${If} $0 == $INSTDIR
        Return
    ${EndIf}
    SetShellVarContext all
    UserInfo::GetAccountType
    Pop $0
    ${If} $0 != Admin
        !insertmacro end_with ${NO_RIGHTS} "$(no_rights)"
    ${EndIf}
FunctionEnd

# A library that cannot be unregistered goes all the same, and is told in the end.
!macro unregister bits file
    ${If} ${FileExists} "${file}"
        !insertmacro regsvr32 ${bits} /u "${file}"
        ${If} $0 <> 0
            StrCpy $Left "${file}"
        ${EndIf}
        Delete "${file}"
    ${EndIf}
!macroend

Section Uninstall
    !insertmacro expect_all_unused "$INSTDIR"
    ReadRegStr $Made_folder SHCTX "${UNINSTALL}" MadeFolder
    !insertmacro unregister 32 "$INSTDIR\x86\Cuvexa.dll"
    !insertmacro unregister 32 "$INSTDIR\x86\CuvexaSuite.dll"
    ${If} ${RunningX64}
        !insertmacro unregister 64 "$INSTDIR\x64\Cuvexa.dll"
        !insertmacro unregister 64 "$INSTDIR\x64\CuvexaSuite.dll"
    ${EndIf}
    RMDir "$INSTDIR\x86"
    RMDir "$INSTDIR\x64"
    Delete "$INSTDIR\cuvexa.exe"
    !insertmacro delete_files
    Delete "$INSTDIR\uninstall.exe"

    !insertmacro delete_shortcuts ${LANG_SPANISHINTERNATIONAL}
    !insertmacro delete_shortcuts ${LANG_ENGLISH}
    Delete "$SMPROGRAMS\Cuvexa\Manual.lnk"
    RMDir "$SMPROGRAMS\Cuvexa"

    DeleteRegKey SHCTX "${APP_PATHS}\cuvexa.exe"
    DeleteRegKey /ifempty SHCTX "${APP_PATHS}"
    DeleteRegKey SHCTX "${UNINSTALL}"
    SetOutPath "$TEMP"  # nobody deletes the folder in which he stands
    !insertmacro remove_folders $INSTDIR $Made_folder
    ${If} $Left != ""
        !insertmacro end_with ${FAILED} "$(left_in_registry)"
    ${EndIf}
SectionEnd
