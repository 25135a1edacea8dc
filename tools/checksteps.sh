#!/bin/bash
# How ./check runs its steps and tells of them; it is sourced, in the repository. With `again` set to yes, tests run in any case.

logs=build/check
passed=build/check-passed # what tests passed on, see tests()
jobs=$(nproc)
rm -rf "$logs"
mkdir -p "$logs" "$passed"
summary=()

log_of() {
    echo "$logs/${1//[ \/]/-}.log"
}

say() {
    printf '%02d:%02d  %s\n' $((SECONDS / 60)) $((SECONDS % 60)) "$1"
}

# report NAME BEGIN EXIT-CODE: what a step came to. When it failed, shows the end of its log and its first failures, and
# ends everything.
report() {
    local name=$1 took=$((SECONDS - $2)) log result
    log=$(log_of "$name")
    # What ran beside other steps ended before it was looked at.
    [[ ! -f $log.ended ]] || took=$(($(<"$log.ended") - $2))
    if [[ $3 -ne 0 ]]; then
        tail -n 60 "$log"
        grep -E -A 6 -e 'Failure$' -e 'ERROR: .*Sanitizer' -e 'WARNING: ThreadSanitizer' -e '[^ ] error: ' "$log" | head -n 60 || true
        echo "check: $name failed; all of its output is in $log" >&2
        exit 1
    fi
    result=$(grep -E '% tests passed' "$log" || true)
    summary+=("$(printf '%4d s  %s' "$took" "$name")")
    if [[ -n $result ]]; then
        echo "$result"
        summary+=("        $result")
    fi
}

# step NAME COMMAND...: runs it with its output in a log.
step() {
    local name=$1 begin=$SECONDS code=0
    shift
    say "$name..."
    "$@" >"$(log_of "$name")" 2>&1 || code=$?
    report "$name" "$begin" "$code"
}

# run_beside LOG COMMAND...: runs it, and notes when it ended
run_beside() {
    local code=0
    "${@:2}" >"$1" 2>&1 || code=$?
    echo "$SECONDS" >"$1.ended"
    return "$code"
}

# beside NAME COMMAND...: starts it beside the steps that follow.
beside() {
    names+=("$1")
    begins+=("$SECONDS")
    say "$1..."
    set -m # a process group of its own, which is ended as a whole
    run_beside "$(log_of "$1")" "${@:2}" &
    set +m
    processes[${#names[@]} - 1]=$!
}

# Waits for everything that runs beside.
joined() {
    local i code
    for i in "${!processes[@]}"; do
        code=0
        wait "${processes[i]}" || code=$?
        unset "processes[i]"
        say "${names[i]}: ended"
        report "${names[i]}" "${begins[i]}" "$code"
    done
}

names=()
begins=()
processes=()
loops=()

end_what_runs() {
    local process
    for process in "${processes[@]/#/-}" "${loops[@]}"; do
        kill -- "$process" 2>/dev/null || true
    done
}
trap end_what_runs EXIT

# beside_busy_loops COMMAND...: runs it while two processes compute without end
beside_busy_loops() {
    local code=0
    for _ in 1 2; do
        (while :; do :; done) &
        loops+=("$!")
    done
    "$@" || code=$?
    kill "${loops[@]}"
    loops=()
    return "$code"
}

# sources [FIND-CONDITION]...: the files of the repository
sources() {
    find . \( -name .git -o -name build -o -name demo-output -o -name node_modules \) -prune -o -type f "$@" -print
}

# The .inl files hold one forwarder a line and are left as they are.
format() {
    sources -regex '.*\.\(cpp\|h\|c\)' | xargs -d '\n' -P "$jobs" -n 40 clang-format-14 --dry-run -Werror
}

scripts() {
    local found=()
    local file
    while read -r file; do
        if head -n 1 "$file" | grep -qE '^#!.*\b(ba)?sh\b'; then
            found+=("$file")
        fi
    done < <(sources)
    shellcheck "${found[@]}"
}

# build PRESET TARGET... [-- OPTION...]: with less right to the processors than tests that run beside it
# CMake is asked twice: when a preset's compiler has changed, it forgets the other settings the first time.
build() {
    local preset=$1 targets=()
    shift
    while [[ $# -gt 0 && $1 != -- ]]; do
        targets+=("$1")
        shift
    done
    cmake --preset "$preset" && cmake --preset "$preset" || return
    nice cmake --build --preset "$preset" --target "${targets[@]}" -- -j "$jobs" "${@:2}"
}

# Newer kernels place memory where the sanitizers do not expect it.
steady=()
if setarch "$(uname -m)" -R true 2>/dev/null; then
    steady=(setarch "$(uname -m)" -R)
fi

at_once=$((2 * jobs)) # tests: more than there are processors, for many wait for most of their time

# run_tests PRESET [OPTION]...: side by side
run_tests() {
    "${steady[@]}" ctest --preset "$1" --parallel "$at_once" "${@:2}"
}

# state PRESET: one line that changes whenever a file of the repository, a setting of this build or a Debian package does
state() {
    {
        sources | LC_ALL=C sort | xargs -d '\n' sha256sum
        cat "build/$1/CMakeCache.txt"
        uname -r
        dpkg-query -W 2>/dev/null || true
    } | sha256sum | cut -d ' ' -f 1
}

# tests_with RUNNER NAME PRESET: the tests of a build. When they all passed before in the very same state, that is said,
# and they are not run again.
tests_with() {
    local runner=$1 name=$2 preset=$3 now record=$passed/$3
    now=$(state "$preset")
    if [[ ${again:-no} == no && -f $record && $(head -n 1 "$record") == "$now" ]]; then
        say "$name: not run, for nothing has changed since they passed (--again runs them)"
        summary+=("   -    $name, not run again: $(tail -n 1 "$record")")
        return
    fi
    rm -f "$record"
    "$runner" "$name" run_and_record "$preset" "$now"
}

run_and_record() {
    run_tests "$1" || return
    echo "$2" >"$passed/$1"
    echo "all passed on $(date '+%F %H:%M')" >>"$passed/$1"
}

tests() {
    tests_with step "$@"
}

# Whether what runs beside other steps can have a /tmp of its own; else it would share files with them.
can_be_apart() {
    tests/apart "$PWD" -- true 2>/dev/null
}

# Beside the steps that follow, where each test has a /tmp of its own.
tests_beside() {
    if can_be_apart; then
        tests_with beside "$@"
    else
        tests_with step "$@"
    fi
}

# beside_apart NAME COMMAND...: the same for a program
beside_apart() {
    if can_be_apart; then
        beside "$1" tests/apart "$PWD" -- "${@:2}"
    else
        step "$@"
    fi
}
