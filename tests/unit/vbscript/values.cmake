quorvane_unit_test(vbscript_values
  SOURCES
    values_convert_test.cpp
    values_date_test.cpp
    values_library_date_test.cpp
    values_library_number_test.cpp
    values_library_text_test.cpp
    values_memory_test.cpp
    values_operator_test.cpp
    values_regexp_test.cpp
    values_string_test.cpp
  LINKS vbscript_values
)
