#!/bin/bash
# A step that fails: the end of what it said is shown, with where the whole is, and the command fails.
. "$(dirname "$0")/../support/checks.sh"
tesela=$(cd "$(dirname "$0")/../.." && pwd)/tesela
real=$(command -v cmake)

# fake_cmake STEP: stands before the real one and fails at the step.
fake_cmake() {
    mkdir -p "$work/first"
    cat >"$work/first/cmake" <<END
#!/bin/bash
if [ "\$1" = "$1" ]; then
    echo "src/host/Form.cpp:12:3: error: no such thing"
    seq 40
    exit 1
fi
exec "$real" "\$@"
END
    chmod +x "$work/first/cmake"
}
PATH=$work/first:$PATH

for case in "--preset Configuring native" "--build Building native"; do
    fake_cmake "${case%% *}"
    title=${case#* }
    run "$tesela" build native
    exits "$title: the command fails" failing
    complains "$title: it says which step" "Failed: $title"
    complains "$title: it shows the error" "src/host/Form.cpp:12:3: error: no such thing"
    complains "$title: it shows the end" "40"
    complains "$title: it says what to do" "run the same command again"
    log=$(grep -oE 'build/log/[^ ]*\.log' "$err")
    holds "$title: the whole is where it says" grep -q "no such thing" "$(dirname "$tesela")/$log"
    run "$tesela" demo
    exits "$title: demo fails too" failing
    run "$tesela" test native
    exits "$title: the tests fail too" failing
done

fake_cmake --preset
run "$tesela" test all
exits "no suite can be configured: all fail" failing

finish_checks
