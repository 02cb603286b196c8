#!/usr/bin/env bash
# Publishes the delivered sample catalogs and looks at the sites with an HTML validator and in a browser.
set -euo pipefail
cd "$(dirname "$0")/.."
sites=$(mktemp -d)
trap 'rm -rf "$sites"' EXIT
application=$sites/application
mkdir "$application"
cp build/release/delivered/Catalog.db "$application"
cp -r build/release/delivered/Images "$application"
publish() { build/Vorlina/vorlina-batch publish --app "$application" --plugin VLHTML.HTML --catalog "$1" --language "$2" --to "$sites/$1"; }
publish 109 Italian
publish 110 English
(cd tests/web && { [ package-lock.json -ot node_modules/.package-lock.json ] || npm ci --no-audit --no-fund; })
node tests/web/check-site.mjs "$sites/109" "$sites/110"
