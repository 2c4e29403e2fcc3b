# PCRE2 for UTF-16 text, the engine of Qt's own regular expressions: the target PCRE2::PCRE2.
find_path(PCRE2_INCLUDE_DIR pcre2.h)
find_library(PCRE2_LIBRARY pcre2-16)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(PCRE2 REQUIRED_VARS PCRE2_LIBRARY PCRE2_INCLUDE_DIR)
mark_as_advanced(PCRE2_INCLUDE_DIR PCRE2_LIBRARY)

if(PCRE2_FOUND AND NOT TARGET PCRE2::PCRE2)
  add_library(PCRE2::PCRE2 UNKNOWN IMPORTED)
  set_target_properties(PCRE2::PCRE2 PROPERTIES
    IMPORTED_LOCATION "${PCRE2_LIBRARY}"
    INTERFACE_INCLUDE_DIRECTORIES "${PCRE2_INCLUDE_DIR}"
    INTERFACE_COMPILE_DEFINITIONS PCRE2_CODE_UNIT_WIDTH=16)
endif()
