# Shared by the tools; sourced, not run.
# shellcheck shell=bash

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=${TARVIK_BUILD:-$root/build}
# Some runners give no home, no standard input, and a locale in which file names have no letters but the English ones.
export HOME=~ LC_ALL=C.UTF-8
{ true <&0; } 2>/dev/null || exec </dev/null

say() { printf '%s\n' "$*" >&2; }
die() { say "$(basename "$0"): $*"; exit 1; }

# at_end COMMAND: what is done when this tool ends, also by a signal. Further signals do not interrupt it.
at_end() {
  # shellcheck disable=SC2064
  trap "trap '' INT TERM HUP; $1" EXIT
  trap 'exit 130' INT
  trap 'exit 143' TERM HUP
}

# configure: writes the build files. Several checkouts share what was compiled once.
configure() {
  CCACHE_BASEDIR=$root CCACHE_NOHASHDIR=1 CMAKE_C_COMPILER_LAUNCHER=ccache CMAKE_CXX_COMPILER_LAUNCHER=ccache \
    cmake -S "$root" -B "$build" --preset linux >/dev/null
}

# The ground that Windows programs run on: a Wine prefix with its server, and a display, which belong together
# because the prefix's desktop lives on one display. All tools on one build folder share it: the first to come sets it
# up, and so chooses the display, and the last to go ends it. Each holds a shared lock on descriptor 7; who gets the
# lock for itself alone is the first, or the last. Tools that are started by others on the same ground just use it.
in_ground=
enter_ground() {
  export WINEPREFIX=$build/wine WINEARCH=win64 WINEDEBUG=${WINEDEBUG:--all}
  [ "${TARVIK_GROUND:-}" != "$build" ] || return 0
  "$root/tools/setup"
  mkdir -p "$build/ground"
  exec 6>>"$build/ground/door" 7>>"$build/ground/lock"
  flock 6
  in_ground=yes
  at_end leave_ground
  if flock -n 7; then start_ground; fi
  flock -s 7
  exec 6>&-
  DISPLAY=$(<"$build/ground/display")
  export DISPLAY TARVIK_GROUND=$build
}

leave_ground() {
  [ -n "$in_ground" ] || return 0
  [ -e /proc/$$/fd/6 ] || exec 6>>"$build/ground/door"  # else the door is still held: the ground could not be set up
  flock 6
  if flock -n 7; then end_ground; fi
  exec 6>&- 7>&-
}

start_ground() {
  end_ground  # what a killed user left
  local TARVIK_GROUND=$build
  export TARVIK_GROUND
  if [ -n "${DISPLAY:-}" ]; then
    xdotool getdisplaygeometry >/dev/null 2>&1 || die "the display $DISPLAY (DISPLAY) does not answer"
  else
    start_display
  fi
  printf '%s\n' "$DISPLAY" >"$build/ground/display"
  cmp -s "$root/tools/wine-prefix.reg" "$WINEPREFIX/.set-up" || make_prefix
  # The first program of a new server brings up Wine's services, which keep its standard channels for good: a caller
  # that reads these to their end would wait for ever. So it is one that nobody reads.
  quietly wineserver -p
  quietly wine cmd /c exit || die "Wine does not run here"
}

# The server picks a free number itself and writes it down once it takes clients. As it comes, it starts anew whenever its
# last client goes, and refuses who comes meanwhile: Wine's desktop would have no screen then.
start_display() {
  local number=$build/ground/number tries=0
  rm -f "$number"
  setsid Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp -noreset 3>"$number" </dev/null >/dev/null 2>&1 6>&- 7>&- &
  printf '%s\n' $! >"$build/ground/xvfb"
  until [ -s "$number" ]; do
    tries=$((tries + 1))
    [ $tries -le 500 ] || die "no display could be opened (Xvfb does not start)"
    sleep 0.02
  done
  DISPLAY=:$(<"$number")
  export DISPLAY
}

make_prefix() {
  say "Preparing Wine (once) ..."
  mkdir -p "$WINEPREFIX"
  # Nobody answers the questions about optional components here.
  WINEDLLOVERRIDES="mscoree,mshtml=" quietly wineboot -i || die "Wine could not be prepared in $WINEPREFIX"
  quietly wine regedit /S "$root/tools/wine-prefix.reg" || die "Wine's registry could not be set up"
  cp /usr/share/wine/fonts/*.ttf "$WINEPREFIX/drive_c/windows/Fonts/" 2>/dev/null || true
  quietly wineserver -w || true
  cp "$root/tools/wine-prefix.reg" "$WINEPREFIX/.set-up"
}

end_ground() {
  local display
  quietly wineserver -k || true
  display=$(cat "$build/ground/xvfb" 2>/dev/null) || true
  if [ -n "$display" ] && [ "$(cat "/proc/$display/comm" 2>/dev/null)" = Xvfb ]; then kill "$display"; fi
  rm -f "$build/ground/xvfb"
  end_marked "TARVIK_GROUND=$build"
  rm -rf "$WINEPREFIX"/drive_c/users/*/Temp/*  # of programs that were ended
}

# end_marked MARK: ends every process that was started with the mark in its environment. Windows programs end at once.
# Those of the system underneath, which they started, clean up behind themselves when they see them gone, and get the
# time for it.
end_marked() {
  local tries pids pid
  for ((tries = 0; tries < 100; tries++)); do
    pids=$(marked "$1")
    [ -n "$pids" ] || return 0
    for pid in $pids; do
      if [ $tries -ge 80 ] || is_wine "$pid"; then kill -KILL "$pid" 2>/dev/null || true; fi
    done
    sleep 0.05
  done
}

# The desktop of the prefix belongs to all of its programs, whoever started it. The search must not find itself.
marked() {
  local file pid
  while read -r file; do
    pid=${file//[^0-9]/}
    if [ "$pid" != $$ ] && ! is_desktop "$pid"; then printf '%s\n' "$pid"; fi
  done < <(unset TARVIK_GROUND TARVIK_RUN; grep -lsazxF "$1" /proc/[0-9]*/environ)
}

is_wine() { [[ $(readlink "/proc/$1/exe") == */wine* ]]; }
is_desktop() { [[ $(tr '\0' ' ' <"/proc/$1/cmdline") == *explorer.exe\ /desktop* ]]; } 2>/dev/null

# Whether the display is one that was opened here, which nobody looks at.
has_own_display() { [ -e "$build/ground/xvfb" ]; }

# as_windows_path PATH: as Wine's programs see it.
as_windows_path() { local path; path=$(realpath "$1") && printf 'Z:%s' "${path//\//\\}"; }

# Without the channels and the locks of this shell, for what outlives it.
quietly() { "$@" </dev/null >/dev/null 2>&1 6>&- 7>&-; }

# screenshot PNG: the desktop of the prefix.
screenshot() {
  local window
  window=$(xdotool search --name '^Default - Wine desktop$' 2>/dev/null | head -n 1) || true
  import -silent -window "${window:-root}" "png:$1"
}
