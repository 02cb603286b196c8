#!/usr/bin/env bash
# Lets the fuzzer make up pictures for so many seconds (30), from the corpus in the repository. What it finds new stays in
# build/fuzz; what breaks the intake is left there as crash-*.
# usage: tools/fuzz.sh [SECONDS]
set -euo pipefail
cd "$(dirname "$0")/.."
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz
mkdir -p build/fuzz/found
# A picture may take what the decoder is allowed for one, besides its own size.
build/fuzz/tests/fuzz/fuzz_pictures -max_total_time="${1:-30}" -rss_limit_mb=1024 -timeout=25 -seed=1 -max_len=16384 \
  -artifact_prefix=build/fuzz/ build/fuzz/found tests/fuzz/corpus >build/fuzz/log 2>&1 || { tail -40 build/fuzz/log; exit 1; }
tail -1 build/fuzz/log
