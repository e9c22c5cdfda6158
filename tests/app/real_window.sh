# A home and a display of their own for a test of the real window, both gone when it ends. Sourced.
home=$(mktemp -d)
processes=()

finish() {
    kill "${processes[@]}" 2>/dev/null || true
    wait 2>/dev/null || true
    rm -rf "$home"
}
trap finish EXIT

fail() {
    echo "FAILED: $1" >&2
    [ ! -f "$home/pellam.log" ] || cat "$home/pellam.log" >&2
    exit 1
}

# until_true WHAT COMMAND...: polls for at most a minute; a busy machine is no failure.
until_true() {
    local what=$1 tries
    shift
    for ((tries = 0; tries < 600; tries++)); do
        "$@" >/dev/null 2>&1 && return
        sleep 0.1
    done
    fail "waited in vain for $what"
}

active_window_titled() { [ "$(xdotool getactivewindow getwindowname)" = "$1" ]; }

export HOME=$home XDG_CONFIG_HOME=$home/config XDG_RUNTIME_DIR=$home/run
export LC_ALL=C.UTF-8 QT_QPA_PLATFORM=xcb
unset WAYLAND_DISPLAY
mkdir -m 700 "$home/run"
# The message bus library keeps memory at exit; that is no leak of the program that is tested.
echo "leak:libdbus-1" >"$home/leaks"
export LSAN_OPTIONS=suppressions=$home/leaks

Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp 3>"$home/display" 2>/dev/null &
processes+=($!)
until_true "the display" test -s "$home/display"
DISPLAY=:$(cat "$home/display")
export DISPLAY
openbox >/dev/null 2>&1 &
processes+=($!)
until_true "the window manager" xdotool get_desktop
