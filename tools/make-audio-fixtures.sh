#!/usr/bin/env bash
# Remakes the audio fixtures in tests/fixtures/audio/ and their manifest.
#
# Every file holds about one second of a sine tone. Tags are written by
# tools/fixture-tagger.cpp (compiled here against the system TagLib); the
# manifest's audio properties are those TagLib reports with Average accuracy.
# The encoders are needed only here: the fixtures are kept in the repository.
#
# Usage: tools/make-audio-fixtures.sh   (as root, or with the tools installed)
set -euo pipefail

ROOT="$(cd "$(dirname "$0")/.." && pwd)"
OUT="$ROOT/tests/fixtures/audio"
WORK="$(mktemp -d)"
trap 'rm -rf "$WORK"' EXIT

install_tools() {
  local missing=()
  command -v ffmpeg >/dev/null || missing+=(ffmpeg)
  command -v lame >/dev/null || missing+=(lame)
  command -v oggenc >/dev/null || missing+=(vorbis-tools)
  command -v flac >/dev/null || missing+=(flac)
  command -v mpcenc >/dev/null || missing+=(musepack-tools)
  command -v opusenc >/dev/null || missing+=(opus-tools)
  command -v g++ >/dev/null || missing+=(g++)
  command -v pkg-config >/dev/null || missing+=(pkg-config)
  pkg-config --exists taglib 2>/dev/null || missing+=(libtag1-dev)
  if ((${#missing[@]})); then
    apt-get update -qq
    DEBIAN_FRONTEND=noninteractive apt-get install -y -qq "${missing[@]}" >/dev/null
  fi
}

build_tagger() {
  # shellcheck disable=SC2046
  g++ -std=c++20 -O1 -Wall -Wextra -o "$WORK/tagger" "$ROOT/tools/fixture-tagger.cpp" \
    $(pkg-config --cflags --libs taglib)
}

# tone RATE LAYOUT NAME: one second of 440 Hz and 660 Hz, apart (stereo) or mixed (mono).
tone() {
  local pan="stereo|c0=c0|c1=c1"
  [[ $2 == mono ]] && pan="mono|c0=0.5*c0+0.5*c1"
  ffmpeg -v error -y -f lavfi -i "sine=f=440:r=$1:d=1" -f lavfi -i "sine=f=660:r=$1:d=1" \
    -filter_complex "[0:a][1:a]amerge=inputs=2,pan=$pan" \
    -map_metadata -1 -fflags +bitexact -c:a pcm_s16le "$WORK/$3"
}

make_sources() {
  tone 44100 stereo st44.wav
  tone 22050 mono mo22.wav
  # A noisy picture, so that the front of a FLAC file is mostly cover art.
  ffmpeg -v error -y -f lavfi -i "nullsrc=s=128x128,geq=r='random(1)*255':g='random(2)*255':b='random(3)*255'" \
    -frames:v 1 -fflags +bitexact "$WORK/cover.png"
  # Small pictures for the cover lookup: kept beside the audio, embedded below.
  ffmpeg -v error -y -f lavfi -i "color=c=0x3060c0:s=32x32" -frames:v 1 -fflags +bitexact "$OUT/art.jpg"
  ffmpeg -v error -y -f lavfi -i "color=c=0xc06030:s=24x24" -frames:v 1 -fflags +bitexact "$OUT/art.png"
}

mp3() { lame --quiet --noreplaygain "${@:3}" "$WORK/$1" "$OUT/$2"; }
wma() { ffmpeg -v error -y -i "$WORK/$1" -map_metadata -1 -fflags +bitexact -c:a wmav2 -b:a "$3" "$OUT/$2"; }
tag() { "$WORK/tagger" write "$OUT/$1" "${@:2}"; }
picture() { "$WORK/tagger" picture "$OUT/$1" "$2" "$OUT/art.jpg" image/jpeg; }

MANIFEST_ROWS=()

# row FILE TYPE TITLE ARTIST ALBUM COMMENT: the text a reader reports (trailing
# white space trimmed) and the properties TagLib gives when FILE is opened as TYPE.
row() {
  local props
  props="$("$WORK/tagger" report "$OUT/$1" "$2")"
  [[ $props == invalid ]] && { echo "$1 did not parse" >&2; exit 1; }
  MANIFEST_ROWS+=("$1"$'\t'"$3"$'\t'"$4"$'\t'"$5"$'\t'"$6"$'\t'"$props")
}

# nothing_row FILE TYPE: a file that must yield nothing.
nothing_row() {
  [[ "$("$WORK/tagger" report "$OUT/$1" "$2")" == invalid || ! -s "$OUT/$1" ]] \
    || { echo "$1 unexpectedly parses" >&2; exit 1; }
  MANIFEST_ROWS+=("$1"$'\t\t\t\t\t\t\t\t')
}

make_files() {
  mp3 st44.wav id3v1.mp3 -b 128
  tag id3v1.mp3 id3v1 "Café Müller" "Dara O'Neill" "First Light" "ID3v1 only"
  row id3v1.mp3 mpeg "Café Müller" "Dara O'Neill" "First Light" "ID3v1 only"

  mp3 st44.wav id3v2.mp3 -b 128
  tag id3v2.mp3 id3v2 "Trailing Blanks   " "Ηλέκτρα Νικολάου" "Θάλασσα" "ID3v2 comment"
  row id3v2.mp3 mpeg "Trailing Blanks" "Ηλέκτρα Νικολάου" "Θάλασσα" "ID3v2 comment"

  mp3 mo22.wav ape.mp3 -m m -b 32
  tag ape.mp3 ape "Mono at 22050" "Tape Loop" "Low Rates" "APE only"
  row ape.mp3 mpeg "Mono at 22050" "Tape Loop" "Low Rates" "APE only"

  mp3 st44.wav SONG.MP3 -b 128
  tag SONG.MP3 id3v2 "Upper Case Extension" "Capital Letters" "Shouting" $'Tab and line end\t\r\n'
  row SONG.MP3 mpeg "Upper Case Extension" "Capital Letters" "Shouting" "Tab and line end"

  mp3 mo22.wav empty-fields.mp3 -m m -b 32
  tag empty-fields.mp3 id3v2 "" "" "" "" "Ambient"
  row empty-fields.mp3 mpeg "" "" "" ""

  oggenc -Q -q 3 -o "$OUT/vorbis.ogg" "$WORK/st44.wav"
  tag vorbis.ogg vorbis "  Leading Blanks" "山田 花子" "夏の歌" "Vorbis comment"
  row vorbis.ogg vorbis "  Leading Blanks" "山田 花子" "夏の歌" "Vorbis comment"

  wma st44.wav LOUD.WMA 128k
  tag LOUD.WMA asf "Upper Case WMA" "Zoë Brandt" "Éclats" "ASF upper case"
  row LOUD.WMA asf "Upper Case WMA" "Zoë Brandt" "Éclats" "ASF upper case"

  wma mo22.wav quiet.wma 32k
  tag quiet.wma asf "Lower Case WMA" "Ashford Quartet" "Quiet Hours" "ASF lower case"
  row quiet.wma asf "Lower Case WMA" "Ashford Quartet" "Quiet Hours" "ASF lower case"

  flac --silent -f -o "$OUT/lossless.flac" "$WORK/mo22.wav" 2>/dev/null
  tag lossless.flac flac "Lossless Tone" "Jürgen Weiß" "Über den Wolken" "FLAC comment"
  row lossless.flac flac "Lossless Tone" "Jürgen Weiß" "Über den Wolken" "FLAC comment"

  mpcenc --silent --overwrite "$WORK/st44.wav" "$OUT/musepack.mpc" 2>/dev/null
  tag musepack.mpc mpc "It's Musepack" "Léa Fontaine" "Stream Eight" "Musepack APE"
  row musepack.mpc mpc "It's Musepack" "Léa Fontaine" "Stream Eight" "Musepack APE"

  opusenc --quiet --bitrate 24 "$WORK/st44.wav" "$OUT/speech.opus"
  tag speech.opus opus "Opus Tone" "Ana Ribeiro" "Pequenas Horas" "Opus comment"
  row speech.opus opus "Opus Tone" "Ana Ribeiro" "Pequenas Horas" "Opus comment"

  ffmpeg -v error -y -i "$WORK/mo22.wav" -map_metadata -1 -fflags +bitexact -c:a aac -b:a 48k "$OUT/Tone.M4A"
  tag Tone.M4A mp4 "Advanced Tone" "Kofi Mensah" "Container Songs" "MP4 comment"
  row Tone.M4A mp4 "Advanced Tone" "Kofi Mensah" "Container Songs" "MP4 comment"

  # The same tracks with art.jpg embedded as the front cover, one per tag kind.
  for pair in id3v2.mp3:mpeg lossless.flac:flac vorbis.ogg:vorbis speech.opus:opus Tone.M4A:mp4 quiet.wma:asf; do
    local file=${pair%%:*} type=${pair##*:}
    cp "$OUT/$file" "$OUT/pictured-$file"
    picture "pictured-$file" "$type"
  done

  # An Opus file whose comment header claims a vendor text of 2 GiB: the
  # stream header is sound, the tags are not read.
  cp "$OUT/speech.opus" "$OUT/lying.opus"
  local at
  at=$(grep -obUa OpusTags "$OUT/lying.opus" | head -n1 | cut -d: -f1)
  printf '\xf0\xff\xff\x7f' | dd of="$OUT/lying.opus" bs=1 seek=$((at + 8)) conv=notrunc status=none

  row lying.opus opus "" "" "" ""

  # MPEG audio under an Ogg name: read as Ogg Vorbis, it does not parse.
  cp "$OUT/id3v2.mp3" "$OUT/misnamed.ogg"
  nothing_row misnamed.ogg vorbis

  # The first half of a FLAC file whose cover picture fills most of its front:
  # the cut falls inside the metadata, so the file does not parse.
  flac --silent -f --picture="3|image/png|||$WORK/cover.png" -o "$WORK/whole.flac" "$WORK/mo22.wav" 2>/dev/null
  "$WORK/tagger" write "$WORK/whole.flac" flac "Cut Short" "Nobody" "Nothing" ""
  head -c "$(($(stat -c %s "$WORK/whole.flac") / 2))" "$WORK/whole.flac" >"$OUT/truncated.flac"
  nothing_row truncated.flac flac

  : >"$OUT/empty.mp3"
  nothing_row empty.mp3 mpeg
}

write_manifest() {
  {
    printf 'file\ttitle\tartist\talbum\tcomment\tlength\tbitrate\tsamplerate\tchannels\n'
    printf '%s\n' "${MANIFEST_ROWS[@]}"
  } >"$OUT/fixtures.tsv"
}

install_tools
build_tagger
mkdir -p "$OUT"
find "$OUT" -maxdepth 1 -type f ! -name README.md ! -name .ready -delete
make_sources
make_files
write_manifest
echo "fixtures written to $OUT"
