#!/bin/sh
# fifo_engine FOLDER PROFILE ENGINE [ARGUMENT ...]: runs the engine for a host under Wine, whose own pipes do not reach a Unix
# program. Creates FOLDER with three FIFOs: a carries the engine's messages, b the host's; c carries no data: its end
# signals the end of the host. Removes FOLDER when the engine has ended. PROFILE is the folder of the engine's profile; empty
# for a temporary one in FOLDER. This shell survives the host, even if that is killed.
umask 077
folder=$1
profile=${2:-$folder/p}
shift 2
shell=$$
mkdir "$folder" || exit 1
mkfifo "$folder/a" "$folder/b" "$folder/c" || exit 1

# Opening a FIFO waits for the other side: ends this shell if the host never opens them.
(
  trap 'kill -KILL $! 2>/dev/null; exit' TERM
  sleep 20 &
  wait $! && { kill "$shell"; rm -rf "$folder"; }
) </dev/null >/dev/null 2>&1 &
start_watcher=$!

# A zero byte, which is an empty message, reports that the FIFOs are open.
exec 4>"$folder/a" 3<"$folder/b" 5<"$folder/c"
head -c1 /dev/zero >&4
kill "$start_watcher"

# The engine of a host that has just ended may still use the profile. The lock lasts as long as this shell. The engine would
# wait for one that was killed.
if [ "$profile" != "$folder/p" ]; then
  exec 9<"$profile"
  flock -w 10 9
  rm -f "$profile"/Singleton*
fi 2>/dev/null

# As root the engine runs only without its sandbox, and would warn of that in a bar that moves the page. The folder also
# takes what the engine leaves behind when it is killed or crashes: sockets and crash reports. The engine leads a process
# group, whose id the host needs to kill it.
[ "$(id -u)" != 0 ] || set -- "$@" --no-sandbox --test-type
TMPDIR=$folder BREAKPAD_DUMP_LOCATION=$folder setsid "$@" --user-data-dir="$profile" --remote-debugging-pipe about:blank \
  </dev/null >/dev/null 2>&1 5<&- 9<&- &
engine=$!
echo "$engine" >"$folder/pid"

# Kills an engine that does not end although the host has.
(
  read -r _ <&5
  trap 'kill -KILL $! 2>/dev/null; exit' TERM
  sleep 5 &
  wait $!
  kill -s KILL -- "-$engine"
) </dev/null >/dev/null 2>&1 3<&- 4>&- 9<&- &
end_watcher=$!

# If the engine was killed, the other processes of its group live on for a moment and would create the folder again.
{
  wait "$engine"
  kill "$end_watcher"
  for _ in 1 2 3 4 5; do
    kill -s KILL -- "-$engine" || break
    sleep .1
  done
  rm -rf "$folder" || { sleep 1; rm -rf "$folder"; }
} 2>/dev/null
