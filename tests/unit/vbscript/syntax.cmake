quorvane_unit_test(vbscript_syntax
  SOURCES syntax_errors_test.cpp syntax_lexer_test.cpp syntax_limits_test.cpp syntax_tree_test.cpp
  LINKS vbscript_syntax)
