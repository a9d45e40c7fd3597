add_library(vbscript STATIC
  bytecode.cpp
  compile_assignments.cpp
  compile_calls.cpp
  compile_expressions.cpp
  compile_texts.cpp
  compile_mentions.cpp
  compile_names.cpp
  compile_script.cpp
  compile_statements.cpp
  disassemble.cpp
  engine.cpp
  err_object.cpp
  machine.cpp
  machine_arrays.cpp
  machine_calls.cpp
  machine_dynamic.cpp
  machine_loop.cpp
  machine_values.cpp
  script_class.cpp
)
target_link_libraries(vbscript PUBLIC vbscript_headers vbscript_syntax vbscript_values)
# Common subexpressions joined over all operations of the loop would cost each of them its own jump.
set_source_files_properties(machine_loop.cpp PROPERTIES COMPILE_OPTIONS
  "$<$<CXX_COMPILER_ID:GNU>:-fno-gcse;-fno-crossjumping>")
