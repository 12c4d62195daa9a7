#!/usr/bin/env bash
# DeskChecks.sh RUN BUILT CHECK: scripts/run with the programs of a build folder.
set -uo pipefail
desk=$1
built=$2
folder=$(mktemp -d)
export TMPDIR=$folder/tmp
mkdir "$TMPDIR"
unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM
pid=
trap 'kill $pid 2>/dev/null; wait; rm -rf "$folder"' EXIT
options=(--built "$built" --data "$folder/data")
# No pipe: grep would end ldd early, which pipefail takes for a failure.
if grep -q libasan <<<"$(ldd "$built/examples/headunit/headunit")"; then
    # Qt's engine keeps memory until exit; leaks are looked for in the component checks.
    export ASAN_OPTIONS=detect_leaks=0
fi

broken() {
    echo "$*" >&2
    cat "$folder/log" >&2
    exit 1
}

# says TEXT: waits for it.
says() {
    grep -qF -m 1 -- "$1" < <(timeout 120 tail --pid=$$ --follow --lines=+1 --sleep-interval=0.1 "$folder/log") \
        || broken "It does not say: $1"
}

# leaves_nothing: no process that was given a folder of this check, no socket, no FIFO.
leaves_nothing() {
    ! grep -lsaFf <(printf '%s\n' "$TMPDIR" "$folder/data") /proc/[0-9]*/cmdline >&2 || broken "Processes are left."
    [[ -z $(ls "$TMPDIR") && ! -e $folder/data/commands ]] || broken "Files are left: $(ls "$TMPDIR")"
}

# refuses MESSAGE OPTION...: with status 1, and so saying.
refuses() {
    local message=$1
    shift
    "$desk" "${options[@]}" "$@" </dev/null >"$folder/log" 2>&1
    (($? == 1)) || broken "It did not end with status 1 for: $*"
    grep -qF -- "$message" "$folder/log" || broken "It does not say: $message"
    leaves_nothing
}

ends_in_order() {
    local signal
    for signal in INT TERM; do
        # A shell's background commands ignore SIGINT, a terminal's do not.
        env --default-signal=INT "$desk" "${options[@]}" --screenshots none >"$folder/log" 2>&1 </dev/null &
        pid=$!
        says "simulator: connected 1"
        ("$desk" "${options[@]}" </dev/null 2>&1 || true) | grep -q "runs already" || broken "Two desks had one folder."
        echo 'set Typed "there"' >"$folder/data/commands"
        says 'simulator: value Typed "there"'
        kill -"$signal" "$pid"
        wait "$pid" || broken "It ended with status $? on SIG$signal."
        says "simulator: disconnected 0" # the head unit before the simulator
        leaves_nothing
    done
    "$desk" "${options[@]}" --screenshots none <<<quit >"$folder/log" 2>&1 || broken "It ended with status $? on 'quit'."
    leaves_nothing
}

says_what_is_missing() {
    refuses "There is no scenario 'nowhere'; name a file, or one of: commute drive" --scenario nowhere
    refuses "is not played: line 1: " --scenario "$desk"
    refuses "The bus at 'unix:path=/nowhere' cannot be reached" --bus unix:path=/nowhere
    refuses "--seconds takes a number, not 'x'" --seconds x
    refuses "--bus takes a value" --bus
    refuses "Unknown option '--what'" --what
    refuses "There is no head unit or no simulator in '$folder'" --built "$folder"
    DISPLAY=:7777 refuses "The display ':7777' cannot be used"
}

# A whole drive, which the simulator refuses nothing of, and its beginning once more.
plays_the_commute() {
    "$desk" "${options[@]}" --screenshots none --speed 20 </dev/null >"$folder/log" 2>&1 &
    pid=$!
    local line
    says "simulator: added 5"
    kill -TERM "$pid"
    wait "$pid" || broken "It ended with status $?."
    for line in offered "moved 3 " "dropped 1" "dismissed 3" created; do
        grep -q "^simulator: $line" "$folder/log" || broken "The drive lacks: $line"
    done
    ! grep -q "^simulator: error" "$folder/log" || broken "The simulator refuses something."
    (($(grep -c "^simulator: offered" "$folder/log") == 1)) || broken "The update is offered twice."
    [[ -f $folder/data/reports/bug-report-1.xml ]] || broken "There is no report."
}

takes_pictures() {
    "$desk" "${options[@]}" --seconds 100 --profile guest </dev/null >"$folder/log" 2>&1 || broken "It ended with status $?."
    local picture
    for picture in drive settings update notifications system drive-night drive-german; do
        [[ $(head -c 4 "$folder/data/screenshots/$picture.png") == $'\x89PNG' ]] || broken "There is no $picture.png."
    done
    [[ -s $folder/data/headunit_settings.db ]] || broken "The settings are not kept with the desk."
    leaves_nothing
}

: >"$folder/log"
"$3"
