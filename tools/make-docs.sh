#!/usr/bin/env bash
# Generates the API reference into build/docs/html. Fails when Doxygen reports an exported
# class or struct without documentation.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
out="$top/build/docs"
version=$(sed -nE 's/^project\(TxAttributeList VERSION ([0-9.]+).*/\1/p' "$top/CMakeLists.txt")
rm -rf "$out"
mkdir -p "$out"
sed -e "s#@SOURCE@#$top#g" -e "s#@OUTPUT@#$out#g" -e "s#@VERSION@#$version#g" "$top/docs/doxygen/Doxyfile.in" > "$out/Doxyfile"
doxygen "$out/Doxyfile"
# Undocumented classes and structs are errors; other warnings are shown.
undocumented=$(grep -E "warning: (Compound|class|struct) .* is not documented" "$out/warnings.log" || true)
others=$(grep -vE "warning: (Compound|class|struct) .* is not documented" "$out/warnings.log" | grep -c "warning:" || true)
echo "API reference: $out/html/index.html ($others other warnings in $out/warnings.log)"
if [ -n "$undocumented" ]; then
  echo "Exported classes without documentation:"
  echo "$undocumented"
  exit 1
fi
