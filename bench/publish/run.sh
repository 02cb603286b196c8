#!/usr/bin/env bash
# Publishing 10,000 products with Vorlina and with Hugo on equal content, whole processes in turn.
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
  cp plugins/vlhtml/skin/style.css "$1/hugo/static/style.css"
}
ours() { /usr/bin/time -f '%e %M' -a -o "$place/ours" "$programs/publish_site" "$1/Catalog.db" "$skin" "$1/ours" >/dev/null 2>&1; }
hugo_() { /usr/bin/time -f '%e %M' -a -o "$place/hugo" hugo --quiet -s "$1/hugo" -d "$1/theirs"; }
median() { cut -d ' ' -f "$2" "$place/$1" | sort -n | sed -n "$(((rounds + 1) / 2))p"; }
report() {  # TITLE
  printf '%-34s Vorlina %6.2f s %4d MB   Hugo %6.2f s %4d MB   ratio %5.1f, memory 1/%.1f\n' "$1" \
    "$(median ours 1)" "$(($(median ours 2) / 1024))" "$(median hugo 1)" "$(($(median hugo 2) / 1024))" \
    "$(echo "$(median hugo 1) / $(median ours 1)" | bc -l)" "$(echo "$(median hugo 2) / $(median ours 2)" | bc -l)"
  rm -f "$place/ours" "$place/hugo"
}
# Each round starts on a quiet disk, so that no process waits for what another one wrote.
first() {  # FOLDER
  for _ in $(seq "$rounds"); do
    rm -rf "$1/ours" "$1/theirs"; sync; ours "$1"; sync; hugo_ "$1"; sync
  done
}

content "$place/plain"
first "$place/plain"
report "10,000 products"
for i in $(seq "$rounds"); do
  sqlite=$place/plain/Catalog.db
  "$programs/change_product" "$sqlite" "$i"; sync; ours "$place/plain"; sync; hugo_ "$place/plain"; sync
done
report "again, one product changed"
if [ "${2:-}" = pictures ]; then
  # 330 KB of noise that does not compress: 3.2 GB in all.
  head -c 337920 /dev/urandom >"$place/noise"
  { printf '\xff\xd8\xff\xe0'; cat "$place/noise"; } >"$place/picture.jpg"
  content "$place/pictures" "$place/picture.jpg"
  rm -rf "$place/plain"
  first "$place/pictures"
  report "10,000 products, 3.2 GB of pictures"
fi
