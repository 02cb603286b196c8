#!/usr/bin/env bash
# Importing photographs of 12 and 24 megapixels with Vorlina and making the same two files of each with two processes of
# vipsthumbnail. Whole processes in turn. Then the same import in the product grid's window, against that of vorlina-batch.
# usage: bench/import/run.sh [ROUNDS] [COUNT]
set -euo pipefail
cd "$(dirname "$0")/../.."
. tools/packages.sh
install_packages bench
rounds=${1:-5}
count=${2:-60}
batch=$PWD/build/Vorlina/vorlina-batch
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
export XDG_CONFIG_HOME=$place/settings VIPS_CONCURRENCY=${VIPS_CONCURRENCY:-1}

photos() { build/release/bench/import/make_photos "$@"; }
fresh() {
  rm -rf "$place/app" "$place/theirs"
  mkdir -p "$place/app/Images" "$place/theirs"
  cp build/release/delivered/Catalog.db "$place/app"
  sync
}
ours() { "$batch" import "$1" --catalog 109 --app "$place/app" >/dev/null; }
half() {  # FOLDER REMAINDER
  local files
  mapfile -t files < <(ls "$1"/*.jpg | awk "NR % 2 == $2")
  vipsthumbnail "${files[@]}" -s 800 -o "$place/theirs/%s.jpg[Q=100,strip]"
  local mains=()
  for file in "${files[@]}"; do mains+=("$place/theirs/$(basename "$file")"); done
  vipsthumbnail "${mains[@]}" -s 200 -o "$place/theirs/t%s.jpg[Q=70,strip]"
}
window() { build/release/bench/import/import_window "$place/app" "$1" >>"$place/stretches.txt" 2>/dev/null; }
theirs() { half "$1" 0 & half "$1" 1 & wait; }
seconds() {  # COMMAND...
  local start end
  start=$(date +%s.%N); "$@"; end=$(date +%s.%N)
  echo "$end - $start" | bc -l
}
median() { sort -n "$1" | sed -n "$(((rounds + 1) / 2))p"; }

photos "$place/photos" "$count"
cat "$place"/photos/*.jpg >/dev/null
for _ in $(seq "$rounds"); do
  fresh; seconds ours "$place/photos" >>"$place/ours.txt"
  fresh; seconds theirs "$place/photos" >>"$place/theirs.txt"
  fresh; seconds window "$place/photos" >>"$place/window.txt"
done
a=$(median "$place/ours.txt"); b=$(median "$place/theirs.txt")
printf '%d photographs: Vorlina %.2f s, vipsthumbnail %.2f s, ratio %.2f\n' "$count" "$a" "$b" "$(echo "$b / $a" | bc -l)"
w=$(median "$place/window.txt")
printf 'in the window %.2f s, ratio to vorlina-batch %.2f; longest stretch without events in the worst round %s ms\n' "$w" "$(echo "$w / $a" | bc -l)" "$(sort -n "$place/stretches.txt" | tail -1)"

memory() {  # TITLE FOLDER
  fresh
  /usr/bin/time -f %M -o "$place/memory" "$batch" import "$2" --catalog 109 --app "$place/app" >/dev/null
  printf '%-42s peak memory %d MB\n' "$1" "$(($(cat "$place/memory") / 1024))"
}
memory "$count photographs" "$place/photos"
photos "$place/few" 6
memory "6 photographs" "$place/few"
photos "$place/progressive" 6 progressive
memory "6 progressive photographs" "$place/progressive"
