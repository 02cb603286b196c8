#!/usr/bin/env bash
# clang-tidy over every source file. A file whose text, headers and rules are those of its last clean run is passed over.
set -euo pipefail
cd "$(dirname "$0")/.."

# A build tree of its own, without precompiled headers: clang cannot read those of the compiler in use.
tree=build/tidy
cmake -S . -B "$tree" -G Ninja -DCMAKE_BUILD_TYPE=Release -DVORLINA_TESTS=ON -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON \
  -DVORLINA_DELIVERED_DIR="$PWD/build/Vorlina" >/dev/null
ninja -C "$tree" -t targets all | sed -n 's/^\([^ ]*_autogen\): phony$/\1/p' | sort -u | xargs ninja -C "$tree" >/dev/null

stamps=$tree/tidy-stamps
mkdir -p "$stamps"
headers=$(git ls-files '*.h' '*.ui' .clang-tidy | xargs cat | sha256sum)
pending=()
while read -r file; do
  stamp=$stamps/$( (cat "$file"; echo "$file $headers") | sha256sum | cut -c1-40)
  [ -e "$stamp" ] || pending+=("$file" "$stamp")
done < <(git ls-files '*.cpp')
echo "$((${#pending[@]} / 2)) files to look at"
[ ${#pending[@]} -eq 0 ] && exit 0
printf '%s\0' "${pending[@]}" | xargs -0 -n 2 -P "$(nproc)" \
  sh -c 'clang-tidy-14 --quiet -p '"$tree"' "$0" 2>/dev/null && touch "$1"'
