#!/usr/bin/env bash
# Draws the default pictures (video, audio, DVD) with ImageMagick into data/.
# Run by hand when the look changes; the results are committed.
set -euo pipefail
out="$(cd "$(dirname "${BASH_SOURCE[0]}")/../data" && pwd)"
S=256 # drawn large, shown at 64 x 64
bg=(-size ${S}x${S} radial-gradient:'#34404f'-'#141920')

convert "${bg[@]}" \
  -fill '#0d1117' -stroke '#5b6b80' -strokewidth 6 -draw "roundrectangle 36,60 220,196 14,14" \
  -fill '#5b6b80' -stroke none \
  -draw "rectangle 44,68 60,80" -draw "rectangle 44,100 60,112" -draw "rectangle 44,132 60,144" -draw "rectangle 44,164 60,176" \
  -draw "rectangle 196,68 212,80" -draw "rectangle 196,100 212,112" -draw "rectangle 196,132 212,144" -draw "rectangle 196,164 212,176" \
  -fill '#4c9dff' -draw "polygon 108,92 108,164 164,128" \
  -quality 92 "$out/Video.JPG"

convert "${bg[@]}" \
  -fill '#4c9dff' -stroke none \
  -draw "ellipse 92,176 30,22 0,360" -draw "ellipse 180,160 30,22 0,360" \
  -draw "rectangle 114,72 126,176" -draw "rectangle 202,56 214,160" \
  -draw "polygon 114,72 214,48 214,78 114,102" \
  -quality 92 "$out/Audio.JPG"

convert "${bg[@]}" \
  -fill '#c9d4e0' -stroke '#5b6b80' -strokewidth 4 -draw "circle 128,128 128,30" \
  -fill '#8fb8ea' -stroke none -draw "circle 128,128 128,60" \
  -fill '#c9d4e0' -draw "circle 128,128 128,96" \
  -fill '#141920' -stroke '#5b6b80' -strokewidth 3 -draw "circle 128,128 128,114" \
  -fill '#0d1117' -stroke none -font DejaVu-Sans-Bold -pointsize 34 -draw "text 95,222 'DVD'" \
  -quality 92 "$out/DVD.jpg"
