# cmake -DINPUT=a.js -DOUTPUT=a.cpp -DNAME=kText -P embed_text.cmake: a text file as the constant tarvik::kText, without
# its comment lines and indentation.
file(READ ${INPUT} TEXT)
string(REGEX REPLACE "\n *//[^\n]*" "" TEXT "\n${TEXT}")
string(REGEX REPLACE "\n[ \n]*" "\n" TEXT "${TEXT}")
string(HEX "${TEXT}" HEX)
string(REGEX REPLACE "(..)" "0x\\1," BYTES "${HEX}")
file(WRITE ${OUTPUT}
  "#include <string_view>\n\nnamespace tarvik {\n"
  "extern const std::string_view ${NAME};\n"
  "static const char bytes[] = {${BYTES}};\n"
  "const std::string_view ${NAME}(bytes, sizeof bytes);\n}\n")
