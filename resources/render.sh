#!/bin/bash
# Renders the icons and images of the library from the drawings.
# The result depends on the drawings only: a second run writes the same bytes.
set -euo pipefail
export LC_ALL=C

cd "$(dirname "${BASH_SOURCE[0]}")"

need() {
    if ! command -v "$1" >/dev/null 2>&1; then
        echo "render.sh: $1 is missing; the Debian package $2 brings it" >&2
        exit 1
    fi
}
need rsvg-convert librsvg2-bin
need icotool      icoutils
need convert      imagemagick
need fc-list      fontconfig
if [ -z "$(fc-list ':family=DejaVu Sans' family)" ]; then
    echo "render.sh: the font DejaVu Sans is missing; the Debian package fonts-dejavu-core brings it" >&2
    exit 1
fi

icons=(color pulse strobe dataout redball moxicon frameab trigger greenball
       disconnected connected)
images=(collapse_all expand_all ok err clear_left
        options options-c options-w options-cw)
diagrams=(strobe strobeBothExp strobeBothRead strobe1Exp_strobe2Read
          strobe1Read_strobe2Exp wdr pulseimage)

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p icons images

# An icon takes the drawing made for a size (NAME-16, NAME-24) when there is
# one, and the general drawing otherwise.
for name in "${icons[@]}"; do
    parts=()
    for size in 16 24 32 48 64; do
        drawing=drawings/$name-$size.svg
        [ -f "$drawing" ] || drawing=drawings/$name.svg
        part=$work/$name-$size.png
        rsvg-convert --format=png --width=$size --height=$size \
                     --output="$part" "$drawing"
        parts+=("$part")
    done
    icotool --create --bit-depth=32 --output="icons/$name.ico" "${parts[@]}"
done

# Tool button images, at 100 % and at 200 %.
for name in "${images[@]}"; do
    for scale in 1 2; do
        suffix=
        [ $scale -eq 1 ] || suffix=@2x
        rsvg-convert --format=png --width=$((32 * scale)) --height=$((32 * scale)) \
                     --output="$work/$name.png" "drawings/$name.svg"
        convert "$work/$name.png" -strip \
                -define png:exclude-chunks=date,time,tIME \
                "PNG32:images/$name$suffix.png"
    done
done

# Diagrams: 24 bits per pixel on white, one pixel per drawing unit, and two at 200 %.
for name in "${diagrams[@]}"; do
    drawing=drawings/$name.svg
    # "strobe" is an icon as well; its diagram has a drawing of its own.
    [ "$name" != strobe ] || drawing=drawings/strobe_timing.svg
    for scale in 1 2; do
        suffix=
        [ $scale -eq 1 ] || suffix=@2x
        rsvg-convert --format=png --background-color=white --zoom=$scale \
                     --output="$work/$name.png" "$drawing"
        convert "$work/$name.png" -background white -alpha remove -alpha off \
                -strip -density 96 -units PixelsPerInch -type TrueColor \
                "BMP3:images/$name$suffix.bmp"
    done
done
