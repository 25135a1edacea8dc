#!/bin/sh
# Makes everything in recordings/ anew: make-recordings.sh DIRECTORY-OF-THE-TOOLS OUTPUT-DIRECTORY
set -eu
tools=$1
output=$2
for style in signature initials long-signature tick-and-cross dots-and-dashes signature-finger; do
    "$tools/kv-make-recording" "$style" S310X 1 >"$output/$style.kvrec"
done
# One finger, pressed better and better.
"$tools/kv-make-finger" 7 28 >"$output/finger-faint.pgm"
"$tools/kv-make-finger" 7 55 >"$output/finger-fair.pgm"
"$tools/kv-make-finger" 7 86 >"$output/finger-clear.pgm"
