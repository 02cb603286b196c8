#!/usr/bin/env bash
# Publishing 10,000 products with Vorlina and with Hugo on equal content, whole processes in turn; and publishing when
# nothing has changed, in turn with a walk over the same files.
# usage: bench/publish/run.sh [ROUNDS] [pictures]
set -euo pipefail
cd "$(dirname "$0")/../.."
. tools/packages.sh
install_packages bench
rounds=${1:-5}
programs=$PWD/build/release/bench/publish
skin=$PWD/plugins/vlhtml/skin
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT

content() {  # FOLDER [PICTURE]
  "$programs/make_content" "$1" 10000 ${2:+"$2"}
  cp -r bench/publish/hugo/. "$1/hugo"
  cp plugins/vlhtml/skin/style.css plugins/vlhtml/skin/search.js "$1/hugo/static"
}
timed() { /usr/bin/time -f '%e %M' -a -o "$place/$1" "${@:2}" >/dev/null 2>&1; }  # NAME COMMAND...
ours() { timed ours "$programs/publish_site" "$1/Catalog.db" "$skin" "$2"; }  # FOLDER TARGET
theirs() { timed theirs hugo --quiet -s "$1/hugo" -d "$2"; }
median() { cut -d ' ' -f "$2" "$place/$1" | sort -n | sed -n "$(((rounds + 1) / 2))p"; }
ratio() { echo "$1 / $2" | bc -l; }
report() {  # TITLE
  printf '%-34s Vorlina %6.2f s %4d MB   Hugo %6.2f s %4d MB   ratio %5.1f, memory 1/%.1f\n' "$1" \
    "$(median ours 1)" "$(($(median ours 2) / 1024))" "$(median theirs 1)" "$(($(median theirs 2) / 1024))" \
    "$(ratio "$(median theirs 1)" "$(median ours 1)")" "$(ratio "$(median theirs 2)" "$(median ours 2)")"
  rm -f "$place/ours" "$place/theirs"
}
# Each round starts on a quiet disk, so that no process waits for what another one wrote, and in folders of its own: files
# that were deleted a moment ago make new ones slow.
first() {  # FOLDER
  for i in $(seq "$rounds"); do
    sync; ours "$1" "$1/ours-$i"; sync; theirs "$1" "$1/theirs-$i"; sync
  done
}

# What both made has to be alike, in number of pages and in bytes.
pages() { find "$1" -name '*.html' | wc -l; }
bytes() { find "$1" -name '*.html' -printf '%s\n' | awk '{ sum += $1 } END { print sum }'; }
require_alike() {  # FOLDER
  local what
  for what in pages bytes; do
    awk -v a="$($what "$1/ours-1")" -v b="$($what "$1/theirs-1")" -v what="$what" \
      'BEGIN { if (a > 1.1 * b || b > 1.1 * a) { print "not alike: " what " " a ", Hugo " b; exit 1 } }'
  done
}

content "$place/plain"
first "$place/plain"
require_alike "$place/plain"
report "10,000 products"
for i in $(seq "$rounds"); do
  "$programs/change_product" "$place/plain/Catalog.db" "$i"
  sync; ours "$place/plain" "$place/plain/ours-1"; sync; theirs "$place/plain" "$place/plain/theirs-1"
done
report "again, one product changed"
# What was written less than two seconds ago proves nothing.
sleep 3
"$programs/publish_site" "$place/plain/Catalog.db" "$skin" "$place/plain/ours-1" >/dev/null
# A hundred times, as one of each is too short for the clock.
hundred() { for _ in $(seq 100); do "$@" >/dev/null; done; }
walk=$( { TIMEFORMAT=%R; time hundred "$programs/stat_files" "$place/plain/ours-1" "$place/plain/Images"; } 2>&1)
none=$( { TIMEFORMAT=%R; time hundred "$programs/publish_site" "$place/plain/Catalog.db" "$skin" "$place/plain/ours-1"; } 2>&1)
printf '%-34s Vorlina %6.1f ms, a walk over the files %6.1f ms   ratio %5.2f\n' "nothing changed" \
  "$(echo "$none * 10" | bc -l)" "$(echo "$walk * 10" | bc -l)" "$(ratio "$none" "$walk")"
if [ "${2:-}" = pictures ]; then
  # 330 KB of noise that does not compress: 3.2 GB in all.
  head -c 337920 /dev/urandom >"$place/noise"
  { printf '\xff\xd8\xff\xe0'; cat "$place/noise"; } >"$place/picture.jpg"
  rm -rf "$place/plain"
  content "$place/pictures" "$place/picture.jpg"
  first "$place/pictures"
  report "10,000 products, 3.2 GB of pictures"
fi
