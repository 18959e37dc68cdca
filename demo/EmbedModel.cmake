# Writes the sample model into a C++ source, so that the demo runs from any directory.
# Usage: cmake -DINPUT=... -DOUTPUT=... -P EmbedModel.cmake
file(READ "${INPUT}" text HEX)
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${text}")
file(WRITE "${OUTPUT}.tmp"
  "// Generated from data/building.txt; do not edit.\n"
  "namespace Demo {\n"
  "namespace { const char builtInModelBytes[] = {${bytes} 0x00}; }\n"
  "extern const char* const BuiltInModelText;\n"
  "const char* const BuiltInModelText = builtInModelBytes;\n"
  "}\n")
file(COPY_FILE "${OUTPUT}.tmp" "${OUTPUT}" ONLY_IF_DIFFERENT)
file(REMOVE "${OUTPUT}.tmp")
