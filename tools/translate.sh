#!/usr/bin/env bash
# Brings the files of translations/ up to the texts in the sources: new ones come in, to be translated, and those that are
# gone go. Where nothing changed the files stay as they are.
# usage: tools/translate.sh [FOLDER]   (another folder with copies of them)
set -euo pipefail
cd "$(dirname "$0")/.."
for file in "${1:-translations}"/*.ts; do
  /usr/lib/qt6/bin/lupdate -silent -no-obsolete -locations none src -I src -ts "$file" 2>/dev/null
done
