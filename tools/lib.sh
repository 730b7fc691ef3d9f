# Shared by the tools; sourced, not run.
# shellcheck shell=bash

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=${TARVIK_BUILD:-$root/build}

say() { printf '%s\n' "$*" >&2; }
die() { say "$(basename "$0"): $*"; exit 1; }

# use_display: an X display for this shell and its children. Where there is none, all programs of the prefix share
# one, because its desktop lives on one display: the first to come starts it, the last to go ends it. Each user
# holds a shared lock on descriptor 7; who gets it for itself alone is the last.
display_state=
use_display() {
  [ -z "${DISPLAY:-}" ] || return 0
  display_state=$build/display
  mkdir -p "$build"
  exec 7>>"$display_state.lock" 6>>"$display_state.door"
  flock 6
  if flock -n 7; then
    rm -f "$display_state"
    # The server picks a free number itself and writes it down once it takes clients.
    Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp 3>"$display_state" >/dev/null 2>&1 6>&- 7>&- &
    echo $! >"$display_state.pid"
    local tries=0
    until [ -s "$display_state" ]; do
      tries=$((tries + 1))
      [ $tries -le 500 ] || die "no display could be started"
      sleep 0.02
    done
  fi
  flock -s 7
  exec 6>&-
  DISPLAY=:$(tr -d '\n' <"$display_state")
  export DISPLAY
}

leave_display() {
  [ -n "$display_state" ] || return 0
  exec 6>>"$display_state.door"
  flock 6
  if flock -n 7; then kill "$(cat "$display_state.pid")" 2>/dev/null || true; fi
  exec 7>&- 6>&-
}

# use_prefix: the project's own Wine prefix, made at first use, with a server that stays warm between programs.
use_prefix() {
  export WINEPREFIX=${TARVIK_WINEPREFIX:-$build/wine} WINEARCH=win64 WINEDEBUG=${WINEDEBUG:--all}
  mkdir -p "$WINEPREFIX"
  exec 8>"$WINEPREFIX.lock"
  flock 8
  [ -e "$WINEPREFIX/.ready" ] || make_prefix
  # The first program of a new server brings up Wine's services, which keep its standard channels for good: a caller
  # that reads these to their end would wait for ever. So it is one that nobody reads.
  if quietly wineserver -p; then quietly wine cmd /c exit || true; fi
  exec 8>&-
}

make_prefix() {
  say "Preparing Wine (once) ..."
  # Nobody answers the questions about optional components here.
  WINEDLLOVERRIDES="mscoree,mshtml=" quietly wineboot -i || die "Wine could not be prepared"
  quietly wine regedit /S "$root/tools/wine-prefix.reg" || die "Wine's registry could not be set up"
  cp /usr/share/wine/fonts/*.ttf "$WINEPREFIX/drive_c/windows/Fonts/" 2>/dev/null || true
  quietly wineserver -w || true
  touch "$WINEPREFIX/.ready"
}

# Without the channels and the locks of this shell, for what outlives it.
quietly() { "$@" </dev/null >/dev/null 2>&1 6>&- 7>&- 8>&-; }
