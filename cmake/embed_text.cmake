# cmake -DINPUTS=a.js,b.js -DOUTPUT=a.cpp -DNAME=kText -P embed_text.cmake: concatenates text files, without their comment
# lines and indentation, into the constant tarvik::kText.
string(REPLACE "," ";" INPUTS "${INPUTS}")
foreach(INPUT ${INPUTS})
  file(READ ${INPUT} PART)
  string(APPEND TEXT "\n${PART}")
endforeach()
string(REGEX REPLACE "\n *//[^\n]*" "" TEXT "${TEXT}")
string(REGEX REPLACE "\n[ \n]*" "\n" TEXT "${TEXT}")
string(HEX "${TEXT}" HEX)
string(REGEX REPLACE "(..)" "0x\\1," BYTES "${HEX}")
file(WRITE ${OUTPUT}
  "#include <string_view>\n\nnamespace tarvik {\n"
  "extern const std::string_view ${NAME};\n"
  "static const char bytes[] = {${BYTES}};\n"
  "const std::string_view ${NAME}(bytes, sizeof bytes);\n}\n")
