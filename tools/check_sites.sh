#!/usr/bin/env bash
# Publishes the delivered sample catalogs and others that are hard on a site, and looks at the sites with an HTML validator
# and in a browser.
set -euo pipefail
cd "$(dirname "$0")/.."
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
mkdir "$place/samples" "$place/made" "$place/sites"
cp build/release/delivered/Catalog.db "$place/samples"
cp -r build/release/delivered/Images "$place/samples"
build/release/tests/web/make_catalogs "$place/made" build/release/delivered/Images/109-AC-950.jpg
publish() {  # APPLICATION CATALOG LANGUAGE NAME
  build/Vorlina/vorlina-batch publish --app "$place/$1" --plugin VLHTML.HTML --catalog "$2" --language "$3" \
    --to "$place/sites/$4" >"$place/report" 2>&1 || { cat "$place/report"; return 1; }
}
publish samples 109 Italian 109
publish samples 110 English 110
number=0
for name in hostile five large empty; do
  number=$((number + 1))
  publish made "$number" English "$name"
done
(cd tests/web && { [ package-lock.json -ot node_modules/.package-lock.json ] || npm ci --no-audit --no-fund; })
node tests/web/check-site.mjs "$place"/sites/*
