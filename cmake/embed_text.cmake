# cmake -DINPUTS=a.js,b.js -DOUTPUT=a.cpp -DNAME=kText -P embed_text.cmake: text files, one after the other, as the
# constant tarvik::kText, without their comment lines and indentation. The files are JavaScript (.js) or shell (.sh).
string(REPLACE "," ";" INPUTS "${INPUTS}")
foreach(INPUT ${INPUTS})
  file(READ ${INPUT} PART)
  if(INPUT MATCHES "\\.sh$")
    set(COMMENT "#")
  else()
    set(COMMENT "//")
  endif()
  string(REGEX REPLACE "\n *${COMMENT}[^\n]*" "" PART "\n${PART}")
  string(APPEND TEXT "${PART}")
endforeach()
string(REGEX REPLACE "\n[ \n]*" "\n" TEXT "${TEXT}")
string(HEX "${TEXT}" HEX)
string(REGEX REPLACE "(..)" "0x\\1," BYTES "${HEX}")
file(WRITE ${OUTPUT}
  "#include <string_view>\n\nnamespace tarvik {\n"
  "extern const std::string_view ${NAME};\n"
  "static const char bytes[] = {${BYTES}};\n"
  "const std::string_view ${NAME}(bytes, sizeof bytes);\n}\n")
