#!/usr/bin/env bash
# campaign.sh MINUTES [TARGET...]
#
# Builds the fuzz targets, runs each (or those named; patterns are allowed) for MINUTES from its
# seeds and what earlier campaigns found, two at a time, and prints a table.  Then measures which
# lines of the readers the tests, the seeds and the corpora reach, and lists the lines that nothing
# reaches.  Everything is kept below build/: corpora in build/corpora, inputs that broke a target in
# build/findings, logs and reports in build/campaign.  0 minutes: the coverage alone.
# Ends with 1 when a target broke.
set -u
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/.." && pwd)
# shellcheck source=../cmake/prepare.sh
. "$root/cmake/prepare.sh"

if ! [ "${1:--1}" -ge 0 ] 2>/dev/null; then
    sed -n '2,10s/^# \{0,1\}//p' "$0"
    exit 2
fi
minutes=$1
shift

fuzz_build=$root/build/host-asan
coverage_build=$root/build/host-cov
corpora=$root/build/corpora
findings=$root/build/findings
campaign=$root/build/campaign

prepare_tests
# shellcheck disable=SC2034
missing=
need llvm-cov llvm
need llvm-profdata llvm
install_missing
mkdir -p "$corpora" "$findings" "$campaign"

# The targets that the arguments name, all without arguments.
chosen_targets() {
    local name pattern
    while read -r name; do
        [ $# -gt 0 ] || echo "$name"
        for pattern in "$@"; do
            # shellcheck disable=SC2053
            [[ $name == $pattern || ${name%_fuzz} == $pattern ]] && echo "$name" && break
        done
    done <"$fuzz_build/fuzz/targets.txt"
}

# Runs one target for $1 minutes; what it prints goes to its log.
run_target() {
    local name=$2
    mkdir -p "$corpora/$name"
    nice -n 15 "$fuzz_build/$name" -max_total_time=$(($1 * 60)) -max_len=8192 -timeout=10 \
        -malloc_limit_mb=256 -rss_limit_mb=2048 -print_final_stats=1 -dict="$here/tiff.dict" \
        -artifact_prefix="$findings/$name-" "$corpora/$name" "$fuzz_build/fuzz/seeds/$name" \
        >"$campaign/$name.log" 2>&1 </dev/null
    echo $? >"$campaign/$name.status"
}

# The number of this name that the target's log ends with.
statistic() { sed -n "s/^stat::$1: *//p" "$campaign/$2.log"; }

print_table() {
    local name broken
    printf '%-24s %12s %9s %8s  %s\n' target executions exec/s corpus findings
    for name in "$@"; do
        broken=none
        [ "$(cat "$campaign/$name.status")" = 0 ] ||
            broken=$(grep -m1 -oE 'SUMMARY: .*|ERROR: .*' "$campaign/$name.log" | cut -c1-90)
        printf '%-24s %12s %9s %8s  %s\n' "$name" "$(statistic number_of_executed_units "$name")" \
            "$(statistic average_exec_per_sec "$name")" "$(find "$corpora/$name" -type f | wc -l)" "$broken"
    done
}

# Runs a program of the coverage build; its counts go to a file of its own.
count_lines() {
    local name=$1
    shift
    QMX_SAMPLE=$root/tools/sample/sample.jpg LLVM_PROFILE_FILE=$campaign/profiles/$name.profraw \
        nice -n 10 "$coverage_build/$name" "$@" >"$campaign/$name.coverage.log" 2>&1 </dev/null ||
        say "$name failed, see $campaign/$name.coverage.log"
}

report_coverage() {
    local name objects=()
    rm -rf "$campaign/profiles"
    mkdir -p "$campaign/profiles"
    say "Counting lines"
    for name in qmx_unit qmx_module qmx_bounds; do
        [ -x "$coverage_build/$name" ] || continue
        count_lines "$name"
        objects+=(-object "$coverage_build/$name")
    done
    "$coverage_build/make_seeds" "$coverage_build/fuzz/seeds"
    while read -r name; do
        mkdir -p "$corpora/$name"
        count_lines "$name" -runs=0 "$corpora/$name" "$coverage_build/fuzz/seeds/$name"
        objects+=(-object "$coverage_build/$name")
    done <"$coverage_build/fuzz/targets.txt"
    llvm-profdata merge -sparse "$campaign"/profiles/*.profraw -o "$campaign/all.profdata" || return 1
    # A function that is linked into several programs counts as reached when any of them reached it.
    llvm-cov export -format=lcov -instr-profile="$campaign/all.profdata" "${objects[@]:1}" \
        "$root/src" >"$campaign/coverage.info" 2>/dev/null
    python3 "$here/line_coverage.py" "$campaign/coverage.info" "$root"
}

say "Building the fuzz targets"
build host-asan -- --target fuzz_targets
"$fuzz_build/make_seeds" "$fuzz_build/fuzz/seeds" || exit 1
mapfile -t targets < <(chosen_targets "$@")
[ ${#targets[@]} -gt 0 ] || { say "no such target"; exit 2; }

broken=0
if [ "$minutes" -gt 0 ]; then
    say "Running ${#targets[@]} targets, $minutes min each"
    for name in "${targets[@]}"; do
        while [ "$(jobs -rp | wc -l)" -ge 2 ]; do wait -n; done
        run_target "$minutes" "$name" &
    done
    wait
    print_table "${targets[@]}"
    for name in "${targets[@]}"; do [ "$(cat "$campaign/$name.status")" = 0 ] || broken=1; done
fi

build host-cov -- --target qmx_unit qmx_module qmx_bounds make_seeds fuzz_targets
report_coverage || exit 1
exit $broken
