#!/bin/sh
# The example writes, byte for byte but for the time stamp of E11, what the program writes.
set -eu
minimo=$1 cotepe=$2
pasta=$(mktemp -d)
trap 'rm -rf "$pasta"' EXIT
"$cotepe" sample "$pasta/loja.db" --days 3 --coupons-per-day 5 --start 2024-01-01 --quiet
"$minimo" "$pasta/loja.db" "$pasta/minimo.txt" 01012024 31012024
"$cotepe" generate --db "$pasta/loja.db" --from 01012024 --to 31012024 --layout 2 --quiet --output "$pasta/cotepe.txt"
sem_carimbo() { sed '/^E11/s/^\(.\{122\}\).\{14\}/\1/' "$1"; }
sem_carimbo "$pasta/minimo.txt" >"$pasta/a"
sem_carimbo "$pasta/cotepe.txt" >"$pasta/b"
grep -q '^E14' "$pasta/a" && cmp "$pasta/a" "$pasta/b"
