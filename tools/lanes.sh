# The lanes of ./test. Sourced from there, with the root of the project as working directory.
# A lane is a function lane_NAME; what it prints goes to build/logs/NAME.log and is shown only when it fails.
# shellcheck shell=bash

# shellcheck source=tools/configure.sh
source tools/configure.sh

jobs=$(nproc)
logs=build/logs
results=build/results
failed_lanes=()
started=$SECONDS

begin_results() {
    rm -rf "$logs" "$results"
    mkdir -p "$logs" "$results"
}

# run_lane NAME [ARGUMENT...]: runs one lane, says how it went, goes on after a failure. The lane is a shell with a
# session of its own, in which stop_lane finds what it has started. A background command of bash ignores interrupts
# unless told otherwise.
run_lane() {
    local name=$1 begun=$SECONDS status=0
    printf '== %-9s ' "$name"
    # shellcheck disable=SC2016 # the lane's shell expands its arguments
    env --default-signal=INT,QUIT setsid bash -euo pipefail -c \
        'trap "exit 130" INT; source tools/packages.sh; source tools/lanes.sh; "lane_$@"' lane "$@" \
        >"$logs/$name.log" 2>&1 </dev/null &
    wait $! || status=$?
    if ((status == 0)); then
        printf 'ok, %d s\n' $((SECONDS - begun))
    else
        printf 'FAILED after %d s; the end of %s:\n' $((SECONDS - begun)) "$logs/$name.log"
        tail -n 60 "$logs/$name.log" | sed 's/^/   /'
        failed_lanes+=("$name")
    fi
    summary_of "$name"
}

# stop_lane STATUS: ends the script, and the running lane with everything that it has started. An interrupt lets the lane's
# programs clean up; what is left half a minute later is killed.
stop_lane() {
    local lane deadline=$((SECONDS + 30))
    trap '' HUP INT QUIT TERM
    for lane in $(jobs -p); do
        # A lane that has just been started may have no session yet.
        until pkill -INT --session "$lane" || ! kill -0 "$lane" 2>/dev/null; do
            sleep 0.05
        done
        while pgrep --session "$lane" >/dev/null; do
            ((SECONDS < deadline)) || pkill -KILL --session "$lane" || true
            sleep 0.05
        done
    done
    printf '\n== interrupted\n'
    exit "$1"
}

# Figures that a lane wants to be seen even when it succeeds.
note() {
    mkdir -p "$results"
    printf '   %s\n' "$*" >>"$results/${FUNCNAME[1]#lane_}.note"
}

# record_result LANE TEST STATUS: the result of a program that writes no file of results itself.
record_result() {
    local failure=
    (($3 == 0)) || failure="<failure message=\"status $3\"/>"
    printf '<testsuite name="%s"><testcase name="%s">%s</testcase></testsuite>\n' "$1" "$2" "$failure" >"$results/$1-$2.xml"
}

summary_of() {
    if [[ -e $results/$1.note ]]; then
        cat "$results/$1.note"
    fi
}

# The closing line; the exit status says the same.
finish() {
    local counts
    counts=$(/usr/bin/python3 tools/count_results.py "$results")
    printf '== %d s in all\n' $((SECONDS - started))
    if ((${#failed_lanes[@]})); then
        printf '== failed: %s\n' "${failed_lanes[*]}"
    fi
    printf '%s\n' "$counts"
    ((${#failed_lanes[@]} == 0)) && [[ $counts == *" passed, 0 failed"* && $counts != "0 passed"* ]]
}

build() {
    local preset=$1
    shift
    configure "$preset" && cmake --build "build/$preset" -j "$jobs" "$@"
}

# run_unit_tests PRESET LANE [OPTION...]: the programs registered with CTest, or those that the options of ctest
# choose; their results are counted by finish.
run_unit_tests() {
    local preset=$1 lane=$2
    shift 2
    GTEST_OUTPUT="xml:$PWD/$results/$lane/" GTEST_BRIEF=1 \
        ctest --test-dir "build/$preset" -j "$jobs" --output-on-failure --no-tests=error "$@"
}

# sources DIRECTORY EXPRESSION...: the files below the directories that find's expression selects, one a line, without what
# has been built and what has been recorded. There are always some.
sources() {
    local found
    found=$(find "$@" -not -path './build/*' -not -path './tests/data/*') || return
    if [[ -z $found ]]; then
        echo "there is no file to look at: $*" >&2
        return 1
    fi
    sort <<<"$found"
}

tidied_sources() {
    sources src client tools standins/platform standins/cimom tests/support -name '*.cpp'
}

lane_style() {
    local formatted tidied rooms=0 format=0 tidy=0
    formatted=$(sources . -regex '.*\.\(cpp\|hpp\|c\|h\)')
    tidied=$(tidied_sources)
    /usr/bin/python3 tools/check_rooms.py || rooms=$?
    record_result style rooms $rooms
    xargs -d '\n' clang-format-14 --dry-run --Werror <<<"$formatted" || format=$?
    record_result style clang-format $format
    configure clang
    xargs -d '\n' /usr/bin/python3 tools/tidy.py build/clang <<<"$tidied" || tidy=$?
    record_result style clang-tidy $tidy
    ((rooms == 0 && format == 0 && tidy == 0))
}

# The static analyzer at its full depth.
lane_analyze() {
    local tidied status=0
    tidied=$(tidied_sources)
    configure clang
    xargs -d '\n' /usr/bin/python3 tools/tidy.py --deep build/clang <<<"$tidied" || status=$?
    record_result analyze clang-tidy $status
    return $status
}

lane_unit() {
    build asan --target unit_tests
    run_unit_tests asan unit
}

# Most of the time a system test waits, so there are more of them at once than processors.
lane_system() {
    build dev --target all cimom_SampleProvider shifted_clock plan_probe no_waiting
    /usr/bin/python3 -m pytest -q -n $((2 * jobs)) --dist loadgroup --junitxml="$results/system.xml" tests/system
}

lane_target() {
    local line library=build/powerpc-installed/lib/openwbem/c++providers/libLANProvider.so
    build powerpc --target all unit_tests load_library
    run_unit_tests powerpc target
    /usr/bin/python3 tests/target/compare_counts.py "$results" >"$logs/target-counts.txt"
    while read -r line; do note "$line"; done <"$logs/target-counts.txt"

    build powerpc-release
    cmake --install build/powerpc-release --prefix build/powerpc-installed
    note "the library for the server: $(stat -c %s "$library") bytes stripped, of which in memory" \
        "$(powerpc-linux-gnu-size "$library" | awk 'NR == 2 {print $1 " shared and " $2 + $3 " of its own"}')"
    /usr/bin/python3 -m pytest -q --junitxml="$results/target-packages.xml" tests/target
}

# in_openwbem TEST FILE ARGUMENT...: a Python program beside the installed object manager on a disposable server.
in_openwbem() {
    local output=$logs/openwbem-$1.log last status=0
    PYTHONPATH=$PWD/tests/support/python standins/server/run standins/server/with-object-manager \
        /usr/bin/python3 -u "${@:2}" >"$output" || status=$?
    last=$(tail -n 1 "$output")
    printf '   %s: %s\n' "$1" "${last#"$1: "}" >>"$results/openwbem.note"
    record_result openwbem "$1" $status
    return $status
}

# lane_openwbem PREFIX: what an object manager has a part in, with the OpenWBEM that is installed there. A part that fails does
# not hide how the others go.
lane_openwbem() {
    local failed=0
    unset KV_STATE_DIR
    configure_openwbem "$1"
    cmake --build build/openwbem -j "$jobs" --target all unit_tests
    cmake --build build/dev -j "$jobs" --target lanctl
    LD_LIBRARY_PATH=$1/lib run_unit_tests openwbem openwbem || failed=1
    export KV_OPENWBEM_ROOT=$1 KV_BUILD_DIR=$PWD/build/openwbem
    export KV_CLIENT_DIR=$PWD/build/dev/client
    in_openwbem run demo/lanctl_tour.py || failed=1
    in_openwbem tour demo/walkthrough.py || failed=1
    /usr/bin/python3 -m pytest -q -n $((2 * jobs)) --dist loadgroup --junitxml="$results/openwbem.xml" tests/system ||
        failed=1
    in_openwbem storm tests/soak/storm.py 100000 at 5988 || failed=1
    return $failed
}

# The accessibility checker; once it is there, no network is needed.
install_axe() {
    local there=build/web
    if [[ -e $there/node_modules/axe-core/axe.min.js ]] && cmp -s tests/web/package-lock.json $there/package-lock.json; then
        return
    fi
    command -v npm >/dev/null || ensure_packages packages-web-npm.txt
    mkdir -p $there
    cp tests/web/package.json tests/web/package-lock.json $there/
    npm ci --prefix $there --ignore-scripts --no-audit --no-fund
}

lane_web() {
    ensure_packages packages-web.txt
    install_axe
    build dev --target lanctl LANProvider kv-cimom kv_netfilter
    /usr/bin/python3 -m pytest -q -n "$jobs" --junitxml="$results/web.xml" tests/web
    note "the first picture stood after $(sed 's/.*\[\(.*\)\].*/\1/' "$results/web/first-picture.json") ms"
}

lane_phy() {
    ensure_packages packages-phy.txt
    build dev --target phy_guest
    /usr/bin/python3 -m pytest -q --junitxml="$results/phy.xml" tests/phy
}

lane_fleet() {
    ensure_packages packages-fleet.txt
    build dev --target LANProvider kv-cimom kv_netfilter lanctl
    /usr/bin/python3 -m pytest -q -n "$jobs" --junitxml="$results/fleet.xml" tests/fleet
}

# on_server LANE TEST BUILD ARGUMENT...: tests/TEST.py on a disposable server, which keeps its state to itself whatever the
# caller's environment says. The test's closing lines begin with its name.
on_server() {
    local name=${2##*/} status=0
    local output=$logs/$1-$name.log
    env --unset=KV_STATE_DIR KV_BUILD_DIR="$PWD/build/$3" PYTHONPATH="$PWD/tests/support/python" \
        standins/server/run /usr/bin/python3 -u "tests/$2.py" "${@:4}" >"$output" || status=$?
    cat "$output"
    sed -n "s/^$name: /   /p" "$output" >>"$results/$1.note"
    record_result "$1" "$name" $status
    return $status
}

# lane_soak SECONDS
lane_soak() {
    build dev --target LANProvider kv-cimom kv_netfilter
    on_server soak soak/soak dev "$1"
}

# lane_plan CHANGES
lane_plan() {
    build dev --target LANProvider kv-cimom kv_netfilter plan_probe no_waiting
    on_server plan plan/property dev "$1"
}

# lane_rollback SEQUENCES
lane_rollback() {
    build dev --target LANProvider kv-cimom kv_netfilter lanctl no_waiting
    on_server rollback wayback/rollback dev "$1"
}

lane_storm() {
    build dev --target LANProvider LANProvider_serialising kv-cimom kv_netfilter
    on_server storm soak/storm dev 100000 serialising --parallel
}

lane_tsan() {
    build tsan --target LANProvider LANProvider_serialising kv-cimom kv_netfilter unit_platform unit_cimom
    run_unit_tests tsan tsan -R '^unit_(platform|cimom)$'
    on_server tsan soak/threads tsan 20
}

# covered FOLDER LIMITS...: how much of the folder's sources the tests have run through. Branches that only an exception takes are
# those of allocations and destructors all over.
covered() {
    local status=0 report=$results/coverage-$1
    mkdir -p "$report"
    gcovr -r . -j "$jobs" --filter "$1/" --exclude-throw-branches --exclude-unreachable-branches \
        --html-details "$report/index.html" --txt "$report/lines.txt" --print-summary "${@:2}" \
        "build/coverage/$1" build/coverage/tests >"$report/summary" || status=$?
    sed -nE "s/^(lines|branches)/   $1: &/p" "$report/summary" >>"$results/coverage.note"
    return $status
}

# What the client's commands do is seen by the system tests that run it.
lane_coverage() {
    local status=0
    ensure_packages packages-coverage.txt
    build dev --target LANProvider kv-cimom kv_netfilter shifted_clock
    build coverage --target product_tests client_tests lanctl
    find build/coverage -name '*.gcda' -delete # what earlier runs have covered
    run_unit_tests coverage coverage -L 'product|client'
    LANCTL=$PWD/build/coverage/client/lanctl /usr/bin/python3 -m pytest -q -n $((2 * jobs)) --dist loadgroup \
        --junitxml="$results/coverage-lanctl.xml" tests/system -k 'test_lanctl or test_wayback or test_web' || status=$?
    covered src --fail-under-line 98 --fail-under-branch 95 || status=$?
    covered client --fail-under-line 95 || status=$?
    return $status
}

# fuzz_target NAME SECONDS: starts from the target's seeds and from what earlier runs have found worth keeping.
fuzz_target() {
    mkdir -p "build/fuzz/corpus/$1"
    "build/fuzz/fuzz/fuzz_$1" -max_total_time="$2" -max_len=4096 -timeout=10 -print_final_stats=1 -verbosity=0 \
        -artifact_prefix="build/fuzz/failed-$1-" "build/fuzz/corpus/$1" "fuzz/seeds/$1" >"$logs/fuzz-$1.log" 2>&1
}

# lane_fuzz SECONDS: each target for that long; the targets are named as the folders of their seeds.
lane_fuzz() {
    local name status failed=0
    build fuzz --target fuzz_targets
    for name in fuzz/seeds/*; do
        name=${name##*/}
        status=0
        fuzz_target "$name" "$1" || status=$?
        record_result fuzz "$name" $status
        if ((status == 0)); then
            note "$name: $(sed -n 's/^stat::number_of_executed_units: *//p' "$logs/fuzz-$name.log") inputs in $1 s"
        else
            note "$name: FAILED, see $logs/fuzz-$name.log; the input is build/fuzz/failed-$name-*"
            tail -n 30 "$logs/fuzz-$name.log"
            failed=1
        fi
    done
    return $failed
}
