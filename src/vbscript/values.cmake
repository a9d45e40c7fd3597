add_library(vbscript_values STATIC
  calendar.cpp
  convert.cpp
  date_text.cpp
  error.cpp
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
target_link_libraries(vbscript_values PUBLIC vbscript_headers)
