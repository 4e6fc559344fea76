#!/bin/sh
# Draws the application's icon: a control tower's beacon sending to both sides. Needs ImageMagick.
set -eu
out=${1:-$(dirname "$0")/../src/win32/Quillon.ico}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
convert -size 1024x1024 xc:none \
  -fill '#1c5fa8' -draw 'roundrectangle 32,32 992,992 200,200' \
  -fill white -draw 'circle 512,402 872,402' -fill '#1c5fa8' -draw 'circle 512,402 806,402' \
  -fill white -draw 'circle 512,402 728,402' -fill '#1c5fa8' -draw 'circle 512,402 662,402' \
  -draw 'polygon 512,402 872,42 152,42' -draw 'polygon 512,402 872,762 152,762' \
  -fill '#ffc845' -draw 'circle 512,402 512,322' \
  -fill white -draw 'polygon 470,500 554,500 640,860 384,860' \
  -fill '#1c5fa8' -draw 'polygon 446,670 578,670 588,712 436,712' \
  "$work/large.png"
for size in 16 24 32 48 64 256; do
  convert "$work/large.png" -filter Lanczos -resize ${size}x${size} -depth 8 "PNG32:$work/$size.png"
done
convert "$work/16.png" "$work/24.png" "$work/32.png" "$work/48.png" "$work/64.png" "$work/256.png" -depth 8 "$out"
