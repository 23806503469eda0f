#!/usr/bin/env bash
# Installs what is missing, builds the fuzzers under sanitizers and runs all of them at once for SECONDS (600).
#
#     scripts/fuzz.sh [SECONDS]
set -euo pipefail
source "$(dirname -- "${BASH_SOURCE[0]}")/prepare.sh"

seconds=${1:-600}
fuzzers=(song_reading matching)

install_packages "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}"
build sanitize "${fuzzers[@]/#/fuzz_}"

work=$root/build/sanitize/fuzz
cd "$root/samples"

# new_seeds NAME empties the folder of the inputs that a fuzzer starts from.
new_seeds() {
    seeds=$work/$1/seeds
    rm -rf -- "$seeds"
    mkdir -p "$seeds"
}

# Each song as a whole, once and repeated, and only the part that holds its format and length: see
# song_reading_fuzzer.cpp.
seed_song_reading() {
    local number=0 song index
    new_seeds song_reading
    for song in */*.{mp3,m4a,wav,aac,flac}; do
        number=$((number + 1))
        { printf '\0' && cat -- "$song"; } >"$seeds/$number"
        { printf '\1' && cat -- "$song"; } >"$seeds/$number.repeated"
        {
            printf '\0'
            if [[ $song == *.m4a ]]; then
                index=$(grep --only-matching --byte-offset --text moov -- "$song" | tail -n 1 | cut -d : -f 1)
                tail --bytes=+$((index - 3)) -- "$song"
            else
                head --bytes=1500 -- "$song"
            fi
        } >"$seeds/$number.head"
    done
    # Enough fragments that not all of them are looked at.
    {
        printf '\0'
        ffmpeg -nostdin -loglevel error -f lavfi -i anullsrc=r=8000:cl=mono -t 4 -c:a aac \
            -f mp4 -movflags +empty_moov -frag_duration 130000 pipe:1
    } >"$seeds/fragments"
}

# The file names of each folder, as they are and four times as long: see matching_fuzzer.cpp.
seed_matching() {
    local folder song base
    new_seeds matching
    for folder in */; do
        for song in "$folder"*; do
            song=${song##*/}
            base=${song%.*}
            printf 'AA%s\n%s\n%s\n' "${base%% - *}" "${base#* - }" "$song"
        done >"$seeds/${folder%/}"
        sed 's/$/\x7F\x7F/' "$seeds/${folder%/}" >"$seeds/${folder%/}.long"
    done
}

# fuzz NAME OPTIONS... starts from the corpus of earlier runs.
fuzz() {
    local name=$1
    shift
    local corpus=$work/$name/corpus
    mkdir -p "$corpus"
    # A fuzzer that crashes does not clean up: its temporary files stay in the build folder.
    TMPDIR=$work/$name "$work/fuzz_$name" "$@" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 \
        -artifact_prefix="$work/$name/" "$corpus" "$work/$name/seeds" >"$work/$name/log" 2>&1
}

seed_song_reading
seed_matching
echo "Fuzzing for $seconds seconds"
export UBSAN_OPTIONS=print_stacktrace=1
# A small quarantine saves memory. Short stacks save time: Qt has no frame pointers, and unwinding through it wanders on.
export ASAN_OPTIONS=quarantine_size_mb=32:malloc_context_size=4
fuzz song_reading -max_len=32768 -dict="$root/fuzz/song_reading.dict" &
runs=($!)
fuzz matching -max_len=320 -dict="$root/fuzz/matching.dict" &
runs+=($!)

failed=0
for i in "${!fuzzers[@]}"; do
    name=${fuzzers[i]}
    if wait "${runs[i]}"; then
        grep --only-matching 'cov: [0-9]* ft: [0-9]* corp: [^ ]*' "$work/$name/log" | tail -n 1 |
            sed "s/^/$name: $(grep '^Done ' "$work/$name/log"), /"
        continue
    fi
    failed=1
    tail -n 80 "$work/$name/log" >&2
    cat >&2 <<-END

	$name found a fault. Reproduce it with the file that is named above:
	    build/sanitize/fuzz/fuzz_$name FILE
	Then write a test for it, at the lowest level that fails.
	END
done
exit "$failed"
