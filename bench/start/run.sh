#!/usr/bin/env bash
# From start to painted window, the two programs in turn. usage: bench/start/run.sh [RUNS]
set -euo pipefail
cd "$(dirname "$0")/../.."
runs=${1:-31}
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
mkdir "$place/application" "$place/settings" "$place/settings/Norsel"
cp build/Vorlina/Catalog.db "$place/application"
ln -s "$PWD/build/Vorlina/PubWiz" "$place/application/PubWiz"
printf '[Plugins]\nPlugins=VLHTML.HTML\n' >"$place/settings/Norsel/Vorlina.settings"
export QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen}

microseconds() { local start end; start=$(date +%s%N); "$@"; end=$(date +%s%N); echo $(((end - start) / 1000)); }
for i in $(seq -2 "$runs"); do
  bare=$(microseconds build/release/bench/start/bench_bare_window 2>/dev/null)
  ours=$(microseconds build/release/bench/start/bench_main_window "$place/application" "$place/settings" 2>/dev/null)
  [ "$i" -lt 1 ] || echo "$bare $ours $((ours * 1000 / bare))" >>"$place/runs"
done
median() { cut -d ' ' -f "$1" "$place/runs" | sort -n | sed -n "$(((runs + 1) / 2))p"; }
printf 'bare window %d us, main window %d us, ratio %d.%03d (medians of %d runs)\n' \
  "$(median 1)" "$(median 2)" "$(($(median 3) / 1000))" "$(($(median 3) % 1000))" "$runs"
