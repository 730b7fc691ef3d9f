# cmake -DINPUTS=a.js,b.js -DOUTPUT=a.cpp -DNAME=kText -P embed_text.cmake: text files, one after the other, as the
# constant tarvik::kText of the type EmbeddedText, without their comment lines and indentation. The files are JavaScript
# (.js) or shell (.sh).
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
file(WRITE ${OUTPUT}.txt "${TEXT}")
file(SIZE ${OUTPUT}.txt SIZE)
file(ARCHIVE_CREATE OUTPUT ${OUTPUT}.gz PATHS ${OUTPUT}.txt FORMAT raw COMPRESSION GZip COMPRESSION_LEVEL 9)
# A header of 10 bytes, among them the time; the stream; the checksum and the size, of 4 bytes each.
file(READ ${OUTPUT}.gz HEX OFFSET 10 HEX)
string(REGEX REPLACE "................$" "" HEX "${HEX}")
string(REGEX REPLACE "(..)" "0x\\1," BYTES "${HEX}")
file(WRITE ${OUTPUT}
  "#include \"base/embedded_text.h\"\n\nnamespace tarvik {\n"
  "extern const EmbeddedText ${NAME};\n"
  "static const unsigned char bytes[] = {${BYTES}};\n"
  "const EmbeddedText ${NAME} = {bytes, sizeof bytes, ${SIZE}};\n}\n")
