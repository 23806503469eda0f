#!/usr/bin/env bash
# Installs what is missing, builds Sonavo and its benchmarks and runs them: all of them, or the one that is named
# (analysis, import, memory, cold, reading, response, results or clean_up) with the given options. Two run only when they
# are named: "slowest [MINUTES [SEED]]" searches for the libraries that the four passes and looking further take longest
# for, and "accuracy FILE" measures how much is found among labelled records; docs/accuracy.md tells where its file is
# from.
#
#     scripts/bench.sh [NAME [OPTION...]]
set -euo pipefail
source "$(dirname -- "${BASH_SOURCE[0]}")/prepare.sh"

case ${1-all} in
all | accuracy | analysis | import | memory | cold | reading | response | results | clean_up | slowest) ;;
*)
    echo "There is no benchmark called $1" >&2
    exit 2
    ;;
esac

install_packages "${BUILD_PACKAGES[@]}" "${BENCH_PACKAGES[@]}"
build bench

benchmarks=$root/build/bench/bin
run() {
    local name=$1
    shift
    case $name in
    accuracy) "$benchmarks/bench_accuracy" "$@" ;;
    analysis) "$benchmarks/bench_analysis" "$@" ;;
    import | memory | cold) "$benchmarks/bench_import" "$name" "$benchmarks/sonavo" "$@" ;;
    reading) "$benchmarks/bench_reading" "$@" ;;
    response) "$benchmarks/bench_response" "$@" ;;
    results) "$benchmarks/bench_results" "$@" ;;
    clean_up) "$benchmarks/bench_clean_up" "$@" ;;
    slowest) "$benchmarks/bench_slowest" "$@" ;;
    esac
}

if (($# > 0)); then
    run "$@"
    exit
fi
figures=$(mktemp)
trap 'rm -f "$figures"' EXIT
for benchmark in analysis import memory cold reading response results clean_up; do
    echo
    echo "== $benchmark"
    run "$benchmark" | tee -a "$figures"
done
echo
echo "== goals that were missed"
grep 'MISSED$' "$figures" || echo none
