#!/usr/bin/env bash
# Seeds for fuzz_reports: the reports ffmpeg and mpgtx print for generated
# clips, and a codec map. Writes into the folder given as $1.
set -euo pipefail
out="$1"
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
v=(-f lavfi -i testsrc2=size=64x48:rate=25:duration=0.5)
a=(-f lavfi -i sine=duration=0.5)
mk() { # name, ffmpeg arguments...
    local name="$1"; shift
    ffmpeg -hide_banner -loglevel error -y "$@" "$work/$name"
    # The report starts with the command line, as the probe's work file does.
    { echo "ffmpeg -i \"$work/$name\" -analyzeduration 30000"; ffmpeg -i "$work/$name" -analyzeduration 30000 2>&1 || true; } >"$out/report-$name.txt"
}
mk clip.avi "${v[@]}" "${a[@]}" -c:v mpeg4 -c:a libmp3lame
mk clip.mkv "${v[@]}" "${a[@]}" -ac 6 -c:v libx264 -c:a ac3
mk clip.mp4 "${v[@]}" "${a[@]}" -c:v libx264 -c:a aac
mk clip.mpg "${v[@]}" "${a[@]}" -c:v mpeg2video -c:a mp2
mk tone.wav "${a[@]}"
if command -v mpgtx >/dev/null; then
    mpgtx -i "$work/clip.mpg" >"$out/mpgtx-clip.txt" 2>&1 || true
fi
printf 'mp3, MPEG Layer 3\nac3 , Dolby AC-3\n85, numeric key\nno comma here\nwmapro,Windows Media Audio Professional v9\n' >"$out/map.txt"
printf '  Duration: N/A, start: 0.000000, bitrate: N/A\n    Stream #0.1: Audio: mp3, 44100 Hz, stereo, 128 kb/s\n    Stream #0.0: Video: mpeg4, yuv420p, 640x480, 25.00 fps\n' >"$out/old-report.txt"
