#!/usr/bin/env bash
# A day at the desk of someone who keeps component data: each task is one command of zel.
#   examples/desk.sh ZEL FOLDER
# ZEL is the program, FOLDER has perry.lb1, crc.lb1 and sample.lb1; the results are written there.
set -euo pipefail
program=$1
cd "$2"

# Shows a command as it would be typed, then its output.
zel() {
  local shown=zel word
  for word in "$@"; do
    case $word in *[*\ \;]*) shown+=" \"$word\"" ;; *) shown+=" $word" ;; esac
  done
  printf '\n$ %s\n' "$shown"
  "$program" "$@"
}
rm -rf own.lb? .own.lb1.zel-history merged.lb?

echo "A library of one's own, from a table"
cat >own.csv <<'CSV'
number,id,cas,name,formula,TC [K],PC [bar],NBP [degC]
10000007,ETHANOL,64-17-5,Ethanol,C2H6O,513.9,61.4,78.3
10000326,WATER,7732-18-5,Water,H2O,647.1,220.64,99.97
CSV
"$program" create own.lb1 >/dev/null
zel import own.lb1 --table own.csv --bank PURECOMP:OWN

echo
echo "One value corrected, looked at, and taken back"
zel edit own.lb1 ETHANOL NBP 78.31C --ref 999
zel undo own.lb1

echo
echo "Two sources compared"
zel compare perry.lb1 crc.lb1 --components ETHANOL WATER --tolerance 1%

echo
echo "Data of a mixture over three libraries, and what is missing"
zel table ETHANOL WATER BENZENE --fields TC PC NBP -l own.lb1 -l perry.lb1 -l crc.lb1 --units bar,degC
zel coverage ETHANOL WATER BENZENE --model NRTL -l perry.lb1 -l sample.lb1
zel pairs NRTL ETHANOL WATER --fields bij bji alphaij -l sample.lb1 -l perry.lb1

echo
echo "One library of what the search finds"
zel flatten own.lb1 perry.lb1 crc.lb1 sample.lb1 -o merged.lb1 --components ETHANOL WATER
