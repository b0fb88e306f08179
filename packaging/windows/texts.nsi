# What the setup says, in both languages.

# text NAME SPANISH ENGLISH
!macro text name spanish english
    LangString ${name} ${LANG_SPANISHINTERNATIONAL} "${spanish}"
    LangString ${name} ${LANG_ENGLISH} "${english}"
!macroend

!insertmacro text component "Cuvexa.dll y el programa cuvexa" "Cuvexa.dll and the program cuvexa"
!insertmacro text about_component \
    "El componente de tesorería para programas de 32 y 64 bits, el programa cuvexa, los ejemplos y el manual (en inglés)." \
    "The treasury component for 32-bit and 64-bit programs, the program cuvexa, the examples and the manual."
!insertmacro text suite "CuvexaSuite.dll, la suite de referencia" "CuvexaSuite.dll, the reference suite"
!insertmacro text about_suite \
    "Los servicios de la suite como objetos de automatización, para conocerlos. No se instala donde ya hay una suite." \
    "The services of the suite as automation objects, to get to know them. Not for a machine that has a suite."
!insertmacro text open_manual "Abrir el manual" "Open the manual"

!insertmacro text in_use "Un programa está usando $0. Ciérrelo y vuelva a intentarlo." \
    "A program is using $0. Close it and try again."
!insertmacro text newer_is_there "Ya está instalada una versión más nueva de Cuvexa, la $0. No se instaló la ${VERSION}." \
    "A newer version of Cuvexa, $0, is installed. ${VERSION} was not installed."
!insertmacro text no_rights "Solo un administrador puede hacerlo para todos los usuarios." \
    "Only an administrator can do this for all users."
!insertmacro text contradiction "/ALLUSERS y /CURRENTUSER se contradicen." "/ALLUSERS and /CURRENTUSER contradict each other."
!insertmacro text wrong_language "/LANG=$1: solo hay es y en." "/LANG=$1: there are es and en only."
!insertmacro text failed "No se pudo completar. Lo que se había hecho se deshizo." \
    "This could not be completed. What had been done was undone."
!insertmacro text left_in_registry "$Left se borró, pero no se pudo quitar del registro." \
    "$Left was deleted, but could not be taken out of the registry."

# The start menu: its entries stay under the names that they were given, whatever the language is when they go.
!define DEMONSTRATION_${LANG_SPANISHINTERNATIONAL} "Demostración"
!define DEMONSTRATION_${LANG_ENGLISH} "Demonstration"
!define COMMAND_LINE_${LANG_SPANISHINTERNATIONAL} "Línea de comandos"
!define COMMAND_LINE_${LANG_ENGLISH} "Command line"
!insertmacro text demonstration "${DEMONSTRATION_${LANG_SPANISHINTERNATIONAL}}" "${DEMONSTRATION_${LANG_ENGLISH}}"
!insertmacro text command_line "${COMMAND_LINE_${LANG_SPANISHINTERNATIONAL}}" "${COMMAND_LINE_${LANG_ENGLISH}}"

!macro delete_shortcuts language
    Delete "$SMPROGRAMS\Cuvexa\${DEMONSTRATION_${language}}.lnk"
    Delete "$SMPROGRAMS\Cuvexa\${COMMAND_LINE_${language}}.lnk"
!macroend
