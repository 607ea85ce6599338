# shellcheck shell=bash
# Sourced by the scripts that run several steps: a heading for each, and a summary at the end.
#
#   step <heading> <command> [argument]...
#
# runs the command and stops the script with the summary if it fails. Tests that ctest counted in
# the command's output are added up; a step without any counts as one check.

steps_log=$(mktemp)
steps_summary=()
steps_passed=0
steps_start=$SECONDS
trap 'rm -f "$steps_log"' EXIT

clock() { printf '%d:%02d' $(($1 / 60)) $(($1 % 60)); }

# Prints the sum of the tests in ctest's closing lines, and of those that failed.
count_tests() {
    awk 'match($0, /[0-9]+ tests? failed out of [0-9]+/) {
             split(substr($0, RSTART), word, " ")
             failed += word[1]
             tests += word[6]
         }
         END { print tests + 0, failed + 0 }' "$steps_log"
}

step() {
    local heading=$1 begin=$SECONDS status=0
    shift
    printf '\n== %s\n' "$heading"
    "$@" 2>&1 | tee "$steps_log" || status=$?

    local line tests failed
    line=$(printf '%-46s %6s' "$heading" "$(clock $((SECONDS - begin)))")
    read -r tests failed < <(count_tests)
    if [ "$status" -ne 0 ]; then
        [ "$failed" -gt 0 ] || failed=1
        [ "$tests" -eq 0 ] || steps_passed=$((steps_passed + tests - failed))
        steps_summary+=("$line  FAILED")
        finish_steps "$failed"
        exit 1
    fi
    [ "$tests" -eq 0 ] || line="$line  $tests tests"
    steps_passed=$((steps_passed + (tests > 0 ? tests : 1)))
    steps_summary+=("$line")
}

# finish_steps [<number of failures>]
finish_steps() {
    printf '\n== Summary\n'
    printf '%s\n' "${steps_summary[@]}"
    printf '%-46s %6s\n\n' "in all" "$(clock $((SECONDS - steps_start)))"
    printf '%d passed, %d failed\n' "$steps_passed" "${1:-0}"
}
