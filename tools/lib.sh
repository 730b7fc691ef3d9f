# Shared by the tools; sourced, not run.
# shellcheck shell=bash

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=${TARVIK_BUILD:-$root/build}
# CI runners may provide no HOME, no standard input, and a locale without non-ASCII file names.
export HOME=~ LC_ALL=C.UTF-8
{ true <&0; } 2>/dev/null || exec </dev/null

say() { printf '%s\n' "$*" >&2; }
die() { say "$(basename "$0"): $*"; exit 1; }

# at_end COMMAND: runs COMMAND when this tool ends, even by a signal. Further signals do not interrupt it.
at_end() {
  # shellcheck disable=SC2064
  trap "trap '' INT TERM HUP; $1" EXIT
  trap 'exit 130' INT
  trap 'exit 143' TERM HUP
}

# configure: writes the build files.
configure() {
  cmake -S "$root" -B "$build" --preset linux ${TARVIK_BUILD_TYPE:+-DCMAKE_BUILD_TYPE=$TARVIK_BUILD_TYPE} >/dev/null
}

# The test environment: a Wine prefix with its server, and a display. They belong together because the prefix's desktop
# lives on one display. All tools on one build folder share one environment: the first tool sets it up, and so chooses
# the display; the last one to end shuts it down. Each holds a shared lock on descriptor 7; a tool that gets the lock
# exclusively is the first or the last. A tool that another tool has started uses the environment of that tool.
in_environment=
enter_environment() {
  export WINEPREFIX=$build/wine WINEARCH=win64 WINEDEBUG=${WINEDEBUG:--all} TARVIK_PROFILE=${TARVIK_PROFILE-temporary}
  [ "${TARVIK_ENVIRONMENT:-}" != "$build" ] || return 0
  "$root/tools/setup"
  mkdir -p "$build/environment"
  exec 6>>"$build/environment/gate" 7>>"$build/environment/lock"
  flock 6
  in_environment=yes
  at_end leave_environment
  if flock -n 7; then start_environment; fi
  flock -s 7
  exec 6>&-
  DISPLAY=$(<"$build/environment/display")
  export DISPLAY TARVIK_ENVIRONMENT=$build
}

leave_environment() {
  [ -n "$in_environment" ] || return 0
  # Descriptor 6 is still open if the environment could not be set up.
  [ -e /proc/$$/fd/6 ] || exec 6>>"$build/environment/gate"
  flock 6
  if flock -n 7; then end_environment; fi
  exec 6>&- 7>&-
}

start_environment() {
  end_environment  # a killed tool may have left one
  local TARVIK_ENVIRONMENT=$build
  export TARVIK_ENVIRONMENT
  if [ -n "${DISPLAY:-}" ]; then
    xdotool getdisplaygeometry >/dev/null 2>&1 || die "the display $DISPLAY (DISPLAY) does not answer"
  else
    start_display
  fi
  printf '%s\n' "$DISPLAY" >"$build/environment/display"
  cmp -s "$root/tools/wine-prefix.reg" "$WINEPREFIX/.set-up" || make_prefix
  # The first program of a new server starts Wine's services, which keep its standard streams open: a caller that reads
  # them to the end would wait forever. So start one here whose streams are not read.
  quietly wineserver -p
  quietly wine cmd /c exit || die "Wine does not run here"
}

# The server picks a free number and writes it once it accepts clients. Without -noreset it restarts whenever its last
# client disconnects, and refuses clients meanwhile: Wine's desktop would have no screen then.
start_display() {
  local number=$build/environment/number tries=0
  rm -f "$number"
  setsid Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp -noreset 3>"$number" </dev/null >/dev/null 2>&1 6>&- 7>&- &
  printf '%s\n' $! >"$build/environment/xvfb"
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
  # Without the overrides, dialogs offer to install optional components.
  WINEDLLOVERRIDES="mscoree,mshtml=" quietly wineboot -i || die "Wine could not be prepared in $WINEPREFIX"
  quietly wine regedit /S "$root/tools/wine-prefix.reg" || die "Wine's registry could not be set up"
  cp /usr/share/wine/fonts/*.ttf "$WINEPREFIX/drive_c/windows/Fonts/" 2>/dev/null || true
  quietly wineserver -w || true
  cp "$root/tools/wine-prefix.reg" "$WINEPREFIX/.set-up"
}

end_environment() {
  local display
  quietly wineserver -k || true
  display=$(cat "$build/environment/xvfb" 2>/dev/null) || true
  if [ -n "$display" ] && [ "$(cat "/proc/$display/comm" 2>/dev/null)" = Xvfb ]; then kill "$display"; fi
  rm -f "$build/environment/xvfb"
  end_marked "TARVIK_ENVIRONMENT=$build"
  rm -rf "$WINEPREFIX"/drive_c/users/*/Temp/*  # killed programs may have left files
}

# end_marked MARK: ends every process that has the mark in its environment. Windows programs are killed immediately. Unix
# processes that they started clean up after their parent has ended, and get four seconds for that.
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

# Excludes the desktop of the prefix, which all programs share, whichever started it. The search must not find itself.
marked() {
  local file pid
  while read -r file; do
    pid=${file//[^0-9]/}
    if [ "$pid" != $$ ] && ! is_desktop "$pid"; then printf '%s\n' "$pid"; fi
  done < <(unset TARVIK_ENVIRONMENT TARVIK_RUN; grep -lsazxF "$1" /proc/[0-9]*/environ)
}

is_wine() { [[ $(readlink "/proc/$1/exe") == */wine* ]]; }
is_desktop() { [[ $(tr '\0' ' ' <"/proc/$1/cmdline") == *explorer.exe\ /desktop* ]]; } 2>/dev/null

# Whether these tools opened the display, so that no user sees it.
has_own_display() { [ -e "$build/environment/xvfb" ]; }

# as_windows_path PATH: the path as Windows programs see it.
as_windows_path() { local path; path=$(realpath "$1") && printf 'Z:%s' "${path//\//\\}"; }

# Runs a command that outlives this shell, without the shell's streams and locks.
quietly() { "$@" </dev/null >/dev/null 2>&1 6>&- 7>&-; }

# screenshot PNG: the desktop of the prefix.
screenshot() {
  local window
  window=$(xdotool search --name '^Default - Wine desktop$' 2>/dev/null | head -n 1) || true
  import -silent -window "${window:-root}" "png:$1"
}
