# shellcheck shell=bash
# A print scheduler of its own for tests: on a free port of the loopback
# interface, with its own configuration, spool and programs, as an ordinary
# user. To be sourced by bash; nothing of the system's scheduler is touched.

# shellcheck source=tests/printing/waiting.sh
. "$(dirname -- "${BASH_SOURCE[0]}")/waiting.sh"

# needPrograms: fails when something of the scheduler is missing.
needPrograms() {
  local program
  PATH=$PATH:/usr/sbin:/sbin
  for program in cupsd lpadmin lp lpstat cancel cupsdisable cupsenable python3 setpriv; do
    command -v "$program" >/dev/null ||
      { echo "$program is missing: apt-get install cups-daemon cups-client"; return 1; }
  done
}

# The beginning of a command that runs as an ordinary user: root becomes lp.
asUser=()
if [ "$(id -u)" -eq 0 ]; then
  asUser=(setpriv --reuid=lp --regid=lp --clear-groups --inh-caps=-all)
fi

# makeScheduler FOLDER FILTER LIBRARY...: the folders and programs of the
# scheduler. The program and the libraries are copied, because the user may not
# be able to reach them where they are.
makeScheduler() {
  local folder=$1 filter=$2
  shift 2
  mkdir -p "$folder"/{etc,spool/tmp,state,cache,log,devices,jobs,ppd,bin/{filter,backend,lib}}
  # The scheduler starts filters through a program of its own.
  ln -s /usr/lib/cups/daemon "$folder/bin/daemon"
  cp -- "$filter" "$folder/bin/filter/"
  cp -- "$@" "$folder/bin/lib/"
  cat >"$folder/bin/backend/capture" <<'END'
#!/bin/sh
# A device that keeps each job in a file of its own, FOLDER/JOB. It takes
# nothing as long as there is a file FOLDER/stop.
if [ $# -eq 0 ]; then
  echo 'direct capture "Unknown" "Keeps jobs"'
  exit 0
fi
folder=${DEVICE_URI#capture:}
trap '' TERM
: >"$folder/$1.begun"
while [ -e "$folder/stop" ]; do sleep 0.05; done
cat >"$folder/$1.part" && mv -- "$folder/$1.part" "$folder/$1"
END
  chmod 755 "$folder/bin/backend/capture"
}

# addFilters FOLDER NAME...: lets the scheduler run these filters of the system.
addFilters() {
  local folder=$1 name
  shift
  for name in "$@"; do
    [ -x "/usr/lib/cups/filter/$name" ] ||
      { echo "$name is missing: apt-get install cups-core-drivers cups-filters"; return 1; }
    ln -s "/usr/lib/cups/filter/$name" "$folder/bin/filter/"
  done
}

freePort() {
  python3 -c 'import socket; s = socket.create_server(("127.0.0.1", 0)); print(s.getsockname()[1])'
}

# writeConfiguration FOLDER PORT
writeConfiguration() {
  local folder=$1 port=$2
  cat >"$folder/etc/cups-files.conf" <<END
ServerRoot $folder/etc
ServerBin $folder/bin
RequestRoot $folder/spool
TempDir $folder/spool/tmp
StateDir $folder/state
CacheDir $folder/cache
ErrorLog $folder/log/errors
AccessLog $folder/log/accesses
PageLog $folder/log/pages
User lp
Group lp
FileDevice Yes
FatalErrors config
END
  cat >"$folder/etc/cupsd.conf" <<END
Listen 127.0.0.1:$port
LogLevel debug
MaxLogSize 0
Browsing Off
WebInterface No
DefaultAuthType None
DirtyCleanInterval 0
JobKillDelay 10
ErrorPolicy abort-job
PageLogFormat %j %p %C %P
<Location />
  Order allow,deny
  Allow all
</Location>
<Policy default>
  JobPrivateAccess all
  JobPrivateValues none
  SubscriptionPrivateAccess all
  SubscriptionPrivateValues none
  <Limit All>
    Order allow,deny
    Allow all
  </Limit>
</Policy>
END
}

# startScheduler FOLDER: sets schedulerProcess, and CUPS_SERVER for the clients.
# Another program may take the port first; then another one is tried.
startScheduler() {
  local folder=$1 try wait port
  for try in 1 2 3 4 5; do
    port=$(freePort)
    writeConfiguration "$folder" "$port"
    if [ "$(id -u)" -eq 0 ]; then chown -R lp:lp "$folder"; fi
    export CUPS_SERVER=127.0.0.1:$port
    # Not in a subshell: the process that is started becomes the scheduler.
    "${asUser[@]}" cupsd -f -c "$folder/etc/cupsd.conf" -s "$folder/etc/cups-files.conf" \
      >>"$folder/log/start" 2>&1 &
    schedulerProcess=$!
    for ((wait = 0; wait < 100; wait++)); do
      if lpstat -r 2>/dev/null | grep -q 'scheduler is running'; then return 0; fi
      kill -0 "$schedulerProcess" 2>/dev/null || break
      sleep 0.1
    done
    stopScheduler
  done
  echo "the scheduler does not start (tried $try ports):"
  cat "$folder/log/start"
  tail -20 "$folder/log/errors" 2>/dev/null
  return 1
}

# stopScheduler: ends the scheduler that startScheduler has started, and waits.
stopScheduler() {
  [ -n "${schedulerProcess:-}" ] || return 0
  kill -TERM "$schedulerProcess" 2>/dev/null || :
  local wait
  for ((wait = 0; wait < 100; wait++)); do
    kill -0 "$schedulerProcess" 2>/dev/null || break
    sleep 0.1
  done
  kill -KILL "$schedulerProcess" 2>/dev/null || :
  wait "$schedulerProcess" 2>/dev/null || :
  schedulerProcess=
}

# isIdle: no job is waiting or printing.
isIdle() { [ -z "$(lpstat -o)" ]; }

# numberOf WORD...: the job number in what lp has printed.
numberOf() {
  local text=$*
  text=${text#*request id is *-}
  echo "${text%% *}"
}
