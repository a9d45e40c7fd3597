add_library(vbscript_values STATIC
  error.cpp
  object.cpp
  string.cpp
  text_case.cpp
  value.cpp
)
target_link_libraries(vbscript_values PUBLIC vbscript_headers)
