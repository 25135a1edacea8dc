# Writes a source that holds several tests: cmake -DOUTPUT=... -DSOURCES=a_test.cpp|b_test.cpp -P unit.cmake
# Half of a test's compilation is what it includes, and what it takes of templates: six at once cost as much as two or
# three. Each is in a namespace of its own, so that they may use the same names, and unseen from outside like a source of its
# own; all that they include comes before.

string(REPLACE "|" ";" SOURCES "${SOURCES}")
set(includes "")
set(tests "")
foreach(source IN LISTS SOURCES)
  file(STRINGS ${source} lines REGEX "^#include [<\"].*\\.?[a-z]*[>\"]")
  list(APPEND includes ${lines})
  get_filename_component(name ${source} NAME_WE)
  string(APPEND tests "namespace {\nnamespace ${name} {\n#include \"${source}\"\n}\n}\n")
endforeach()
list(FILTER includes EXCLUDE REGEX "\\.inl\"$")
list(REMOVE_DUPLICATES includes)
list(JOIN includes "\n" includes)
file(WRITE ${OUTPUT} "${includes}\n${tests}")
