# sources of this layer
add_library(vbscript_syntax STATIC
  compile_errors.cpp
  dump_tokens.cpp
  dump_tree.cpp
  lexer.cpp
  name_table.cpp
  parse_declarations.cpp
  parse_expressions.cpp
  parse_statements.cpp
  parser.cpp
)
target_link_libraries(vbscript_syntax PUBLIC vbscript_headers vbscript_values)
