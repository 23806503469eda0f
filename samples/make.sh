#!/usr/bin/env bash
# Makes the sample library beside this script: very short generated tones under names that show what counts as a
# duplicate and what does not. Needs ffmpeg. The files it makes are kept with the program.
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")"

# song PATH SECONDS PITCH [OPTIONS FOR THE ENCODER...]
song() {
    local path=$1 seconds=$2 pitch=$3
    shift 3
    mkdir -p "$(dirname -- "$path")"
    ffmpeg -nostdin -loglevel error -y -f lavfi -i "sine=frequency=$pitch:sample_rate=22050:duration=$seconds" \
        -map_metadata -1 -fflags +bitexact -flags +bitexact "$@" "$path"
}

rm -rf -- Albums Desktop Laptop Phone

# By title: the same song from three places.
song "Albums/Vela Torres - Harbour Lights.flac" 1.6 440
song "Laptop/Vela Torres - HARBOUR LIGHTS.mp3" 1.6 440 -b:a 32k
song "Phone/Vela Torres - Harbour Lights.m4a" 1.7 440 -b:a 32k

# By title, with differing punctuation in the title and one artist's name inside the other's.
song "Albums/The Silver Larks - Don't Look Down!.wav" 1.3 392
song "Phone/Silver Larks - Don't Look Down.aac" 1.3 392 -b:a 24k

# By file name: a hyphen in the artist's name moves the border between artist and title.
song "Laptop/Silverpine-Jo - River Song.mp3" 1.4 523 -b:a 32k
song "Phone/Silverpine Jo - River Song.mp3" 1.4 523 -b:a 24k

# By artist and title: the title alone leads first to two artists that have no word in common.
song "Albums/Marlowe - Night Drive.mp3" 2.2 330 -b:a 32k
song "Desktop/Kestrel - Night Drive.flac" 1.5 349
song "Laptop/Kestrel - Night Drive.mp3" 1.5 349 -b:a 32k

# By playing time: spelt differently everywhere, but equally long. The first of them is the one above.
song "Laptop/Marlow - Night Drive.m4a" 2.2 330 -b:a 24k
song "Albums/Ada Finch - Paper Boats.mp3" 1.2 587 -b:a 32k
song "Phone/Ada Finch - Paper Boats (Live).m4a" 1.2 587 -b:a 32k

# Not duplicates: too far apart in length.
song "Albums/Vela Torres - Northbound.mp3" 1.2 659 -b:a 24k
song "Albums/Vela Torres - Northbound (Extended).mp3" 7.5 659 -b:a 24k
# Not duplicates: nearly equally long and similar, but in different whole seconds and with different titles.
song "Albums/Ada Finch - Glass Road.flac" 1.9 494
song "Phone/Ada Finch - Glass Road (Demo).flac" 2.1 494
# Not duplicates: the same title by different artists.
song "Albums/Bruno Vale - Opening.mp3" 1.2 294 -b:a 24k
song "Albums/Cora Lind - Opening.mp3" 1.2 311 -b:a 24k
# Not duplicates: no word of three letters to go by.
song "Albums/Cora Lind - Go.mp3" 1.1 370 -b:a 24k
song "Desktop/Cora Lind - Go.aac" 1.1 370 -b:a 24k
