# Writes a C++ file with the bytes of files: cmake -DFILES=a|b -DOUTPUT=c.cpp -P embed.cmake
string(REPLACE "|" ";" FILES "${FILES}")
set(arrays "")
set(table "")
set(index 0)
foreach(file IN LISTS FILES)
  get_filename_component(name ${file} NAME)
  file(READ ${file} hex HEX)
  string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${hex}")
  string(APPEND arrays "const unsigned char kFile${index}[] = {${bytes}};\n")
  string(APPEND table "    {\"${name}\", kFile${index}, sizeof kFile${index}},\n")
  math(EXPR index "${index} + 1")
endforeach()
file(WRITE ${OUTPUT}
  "#include \"bundled.h\"\n\nnamespace kvsim {\n\nnamespace {\n${arrays}}\n\n"
  "const BundledFile kBundledFiles[] = {\n${table}};\nconst std::size_t kBundledFileCount = ${index};\n\n}\n")
