add_library(vbscript_values STATIC
  calendar.cpp
  convert.cpp
  date_text.cpp
  error.cpp
  library/arrays.cpp
  library/byte_strings.cpp
  library/constants.cpp
  library/conversion.cpp
  library/dates.cpp
  library/escape.cpp
  library/formatting.cpp
  library/library.cpp
  library/math.cpp
  library/strings.cpp
  library/system.cpp
  library/text_search.cpp
  locale.cpp
  number_text.cpp
  object.cpp
  operators_arithmetic.cpp
  operators_compare.cpp
  operators_logical.cpp
  string.cpp
  text_case.cpp
  value.cpp
)
target_link_libraries(vbscript_values PUBLIC vbscript_headers PRIVATE PkgConfig::PCRE2)
