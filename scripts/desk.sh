# shellcheck shell=bash
# Sourced by scripts/run after common.sh: starts the parts of the desk one after the other, and ends them in reverse.

bus=             # address
work=            # folder of the sockets; gone at the end
commands=        # FIFO that the simulator reads; gone at the end
printer=         # process id of what shows the simulator's lines
# Whatever ends the desk is a line in the FIFO "events" (descriptor 5), so that nothing is missed and nothing is done in
# the middle of something else.
declare -A parts # process ids of the others, by name
patience=20      # seconds for a part to start or to end

# What begins with these is not left behind when the script is killed; the second is out of reach of Ctrl-C as well.
bound=(setpriv --pdeathsig TERM --)
detached=(setsid "${bound[@]}")

# open_desk FOLDER: for this desk alone. From here on whatever ends the script ends the desk.
open_desk() {
    mkdir -p "$1/reports" "$1/exported" "$1/var" || fail "The folder '$1' cannot be used; name another one with --data."
    exec 9>"$1/lock"
    flock --nonblock 9 || fail "A desk that keeps its data in '$1' runs already; end it, or name another folder with --data."
    work=$(mktemp -d "${TMPDIR:-/tmp}/headunit-desk.XXXXXX") || fail "There can be no folder in '${TMPDIR:-/tmp}'."
    trap end_desk EXIT
    commands=$1/commands
    rm -f "$commands"
    mkfifo "$commands" "$work/answers" "$work/address" "$work/alive" "$work/events"
    exec 5<>"$work/events"
    trap 'echo stop >&5' INT TERM HUP
}

# end_desk: with the status of the script, or 1 when a part did not end well.
end_desk() {
    local status=$?
    trap '' INT TERM HUP
    set +e
    end_part "head unit" || status=1
    end_helper timer
    end_helper input
    end_part simulator || status=1
    [[ -n $printer ]] && wait "$printer"
    end_part bus || status=1
    rm -rf "$work" "$commands"
    exit "$status"
}

# end_part NAME: in order, or after a while at once.
end_part() {
    local pid=${parts[$1]:-} status=0
    [[ -n $pid ]] || return 0
    kill -TERM "$pid" 2>/dev/null
    if ! timeout "$patience" tail --pid="$pid" --sleep-interval=0.05 --follow /dev/null 9>&-; then
        echo "The $1 does not end within $patience s and is killed." >&2
        kill -KILL "$pid"
    fi
    wait "$pid" || status=$?
    # 143: it was only starting.
    ((status == 0 || status == 143)) || {
        echo "The $1 ended with status $status." >&2
        return 1
    }
}

end_helper() {
    [[ -n ${parts[$1]:-} ]] || return 0
    kill "${parts[$1]}" 2>/dev/null
    wait "${parts[$1]}"
}

# start_bus: a private one.
start_bus() {
    command -v dbus-daemon >/dev/null \
        || fail "There is no dbus-daemon for a private bus; install the package dbus-daemon, or name a bus with --bus."
    "${detached[@]}" dbus-daemon --session --nofork --nopidfile --print-address "--address=unix:path=$work/bus" \
        >"$work/address" 2>"$work/bus.log" &
    parts[bus]=$!
    read -r -t "$patience" bus <"$work/address" || fail "The private bus did not start ($(<"$work/bus.log")); name another one with --bus."
}

# start_simulator PROGRAM REPORTS OPTION...: with all services; its lines are shown from now on.
start_simulator() {
    local line=
    exec 3<>"$commands"
    "${detached[@]}" "$1" --signal-service "$work/signals" --services all --bus "$bus" --reports "$2" "${@:3}" \
        <&3 >"$work/answers" &
    parts[simulator]=$!
    exec 4<"$work/answers"
    while [[ $line != "listening $work/signals" ]]; do
        read -r -t "$patience" line <&4 || fail "The simulator did not start; it says why above."
        echo "simulator: $line"
    done
    {
        sed -u 's/^/simulator: /' <&4
        echo simulator >&5
    } 9>&- &
    printer=$!
    exec 4<&-
}

# forward_input: what is typed goes to the simulator.
forward_input() {
    [[ -t 0 || -p /dev/stdin || -f /dev/stdin ]] || return 0
    # In the background of a terminal, reading from it would stop the desk.
    trap '' TTIN
    "${bound[@]}" cat <&0 >&3 2>/dev/null 9>&- &
    parts[input]=$!
    trap - TTIN
}

# choose_display: a window where there is a display, and otherwise none.
choose_display() {
    if [[ -n ${QT_QPA_PLATFORM:-} ]]; then
        works_on "$QT_QPA_PLATFORM" || fail_display "$QT_QPA_PLATFORM" QT_QPA_PLATFORM
    elif [[ -n ${DISPLAY:-} ]] && works_on xcb; then
        export QT_QPA_PLATFORM=xcb
    elif [[ -n ${WAYLAND_DISPLAY:-} ]] && works_on wayland; then
        export QT_QPA_PLATFORM=wayland
    elif [[ -n ${DISPLAY:-} ]]; then
        fail_display "$DISPLAY" DISPLAY
    elif [[ -n ${WAYLAND_DISPLAY:-} ]]; then
        fail_display "$WAYLAND_DISPLAY" WAYLAND_DISPLAY
    else
        export QT_QPA_PLATFORM=offscreen
    fi
}

# works_on PLATFORM: whether a program of Qt starts there.
works_on() { (ulimit -c 0 && QT_QPA_PLATFORM=$1 timeout 20 qml --help) >/dev/null 2>"$work/display.log"; }

fail_display() {
    sed '/^$/d' "$work/display.log" >&2
    fail "The display '$1' cannot be used; start it or allow access to it, or unset $2 to do without a window."
}

# write_configuration BUILT FOLDER: the product's, with the folders and the socket of this desk.
write_configuration() {
    local line key
    local -A own=([DataManagerConfigPath]=$2/DataManagerConf.ini [ErrorReportPath]=$2/reports
        [ErrorReportPathExport]=$2/exported [ScreenSnapshotPath]=$2 [SignalServicePath]=$work/signals)
    cp "$1/DataManagerConf.ini" "$2/DataManagerConf.ini"
    printf '[HmiCore]\nGnuLocalstatedir="%s"\n[HmiShared]\n' "$2/var"
    for key in "${!own[@]}"; do printf '%s="%s"\n' "$key" "${own[$key]}"; done
    while IFS= read -r line || [[ -n $line ]]; do
        key=${line%%=*}
        [[ $key == GnuLocalstatedir || -n ${own[${key:-none}]:-} ]] && continue
        # What is relative is so to where the file came from.
        [[ $line =~ ^([A-Za-z]*Path|Gnu[a-z]+)=([^/\"].*)$ ]] && line="$key=\"$1/${BASH_REMATCH[2]}\""
        printf '%s\n' "$line"
    done <"$1/headunit.ini"
}

# start_headunit PROGRAM CONFIGURATION
start_headunit() {
    [[ $QT_QPA_PLATFORM != offscreen ]] || export QT_QUICK_BACKEND=software
    export XDG_RUNTIME_DIR=${XDG_RUNTIME_DIR:-$work} DBUS_SYSTEM_BUS_ADDRESS=$bus
    "${detached[@]}" "$1" "$2" </dev/null 7>"$work/alive" &
    parts["head unit"]=$!
    {
        cat <"$work/alive"
        echo "head unit" >&5
    } 9>&- &
}

# limit_time SECONDS. Nobody writes into that FIFO any more.
limit_time() {
    {
        read -r -t "$1" <>"$work/address"
        echo stop >&5
    } 9>&- &
    parts[timer]=$!
}

# wait_for_end: of the desk's time or of one of its parts; fails when that did.
wait_for_end() {
    local event status=0
    read -r event <&5
    [[ $event != stop ]] || return 0
    wait "${parts[$event]}" || status=$?
    unset "parts[$event]"
    ((status == 0)) || fail "The $event ended with status $status; see 'When it does not start' in docs/desk.md."
}
