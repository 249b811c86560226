# Sourced by scripts that run the tests in parts: each part is run whatever became of those before it, and the summary
# tells what failed. Scripts that run as one share KVQ_TALLY, a file with a line a part.

[[ -n ${KVQ_TALLY-} ]] || {
    KVQ_TALLY=$(mktemp)
    trap 'rm -f "$KVQ_TALLY"' EXIT
}

# note NAME SECONDS TESTS FAILED [WHICH]
note() {
    printf '%s\t%s\t%s\t%s\t%s\n' "$1" "$2" "$3" "$4" "${5-}" >>"$KVQ_TALLY"
}

# part NAME COMMAND...: counts as one test. Gives the command's status.
part() {
    local name=$1 status begin=$SECONDS
    shift
    echo "== $name"
    set +e # a subshell in a condition would go on after an error
    (set -e && "$@")
    status=$?
    set -e
    note "$name" $((SECONDS - begin)) 1 $((status != 0))
    return $status
}

# tests PRESET: the tests of a build that is there
tests() {
    local log status=0 counts begin=$SECONDS
    echo "== Testing ($1)"
    log=$(mktemp)
    ctest --preset "$1" --progress | tee "$log" || status=$?
    counts=$(sed -n 's/^[0-9]*% tests passed, \([0-9]*\) tests failed out of \([0-9]*\)$/\2 \1/p' "$log")
    if [[ -z $counts ]]; then
        note "tests ($1)" $((SECONDS - begin)) 1 1 "the test runner gave no summary"
    else
        note "tests ($1)" $((SECONDS - begin)) "${counts% *}" "${counts#* }" \
            "$(sed -n 's/^\t *[0-9]* - \(.*\) (\(Failed\|Timeout\|SEGFAULT\|Not Run\|Subprocess.*\|.*Exception.*\)).*/\1/p' "$log" | paste -sd ' ')"
    fi
    skipped "build/$1"
    rm "$log"
    return "$status"
}

# Notes the tests that were skipped, and why: they count as nothing.
skipped() {
    local name reason
    while IFS=$'\t' read -r name reason; do
        note "$name" 0 0 0 "skipped: $reason"
    done < <(awk '/^[0-9]+\/[0-9]+ Test: / { name = $3 }
        reason { print name "\t" $0; reason = 0 }
        /: Skipped$/ { reason = 1 }' "$1/Testing/Temporary/LastTest.log")
}

# The parts with what failed, and a last line in the test runner's form over all of them. Status 1 when anything failed.
summary() {
    echo "== Summary"
    awk -F '\t' '
        { all += $3; failed += $4 }
        $3 == 0 { printf "    %s %s\n", $1, $5; next }
        { printf "%-34s %4d of %4d passed in %2d:%02d min%s\n", $1, $3 - $4, $3, $2 / 60, $2 % 60,
              $5 == "" ? "" : "; failed: " $5 }
        END {
            passed = all ? int((all - failed) * 100 / all) : 0
            printf "\n%d%% tests passed, %d tests failed out of %d\n", passed, failed, all
            exit failed > 0 || all == 0
        }' "$KVQ_TALLY"
}
