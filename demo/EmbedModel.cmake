# Writes the sample model into a C++ source, so that the demo runs from any directory.
# Usage: cmake -DINPUT=... -DOUTPUT=... [-DSYMBOL=...] -P EmbedModel.cmake
# SYMBOL names the text (Demo::BuiltInModelText unless given).
if(NOT SYMBOL)
  set(SYMBOL BuiltInModelText)
endif()
file(READ "${INPUT}" text HEX)
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${text}")
file(WRITE "${OUTPUT}.tmp"
  "// Generated from ${INPUT}; do not edit.\n"
  "namespace Demo {\n"
  "namespace { const char bytes[] = {${bytes} 0x00}; }\n"
  "extern const char* const ${SYMBOL};\n"
  "const char* const ${SYMBOL} = bytes;\n"
  "}\n")
file(COPY_FILE "${OUTPUT}.tmp" "${OUTPUT}" ONLY_IF_DIFFERENT)
file(REMOVE "${OUTPUT}.tmp")
