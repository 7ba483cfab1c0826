#!/usr/bin/env bash
# Records what this machine does as CSV, one row every few seconds. machine.csv was made with it while the
# project was being built. Linux only: everything comes from /proc and /sys.
#
#   examples/data/record_machine.sh [SECONDS_BETWEEN_ROWS [ROWS]] > machine.csv
#
# Columns:
#   time            start of the row's second, ISO 8601, UTC
#   load            processes that run or wait, averaged over one minute
#   cpu_percent     share of all processors that was busy since the row before
#   memory_mib      memory in use, in MiB (total less available)
#   processes       number of processes
#   switches_per_s  context switches per second since the row before
#   temperature_c   hottest sensor in degrees Celsius; the column is left out on machines without one
set -euo pipefail

interval=${1:-2}
rows=${2:-1500}

# Busy and total processor time and the number of context switches since boot.
read_counters() {
    awk '/^cpu / { for (i = 2; i <= 9; ++i) total += $i; busy = total - $5 - $6 }
         /^ctxt / { switches = $2 }
         END { print busy, total, switches }' /proc/stat
}

hottest_sensor() {
    cat /sys/class/thermal/thermal_zone*/temp 2>/dev/null | sort -n | tail -n 1
}

has_sensor=no
if [ -n "$(hottest_sensor)" ]; then
    has_sensor=yes
fi

header=time,load,cpu_percent,memory_mib,processes,switches_per_s
if [ "$has_sensor" = yes ]; then
    header+=,temperature_c
fi
printf '%s\n' "$header"

read -r busy total switches < <(read_counters)
before=$(date +%s.%N)
for ((row = 0; row < rows; ++row)); do
    sleep "$interval"
    read -r new_busy new_total new_switches < <(read_counters)
    now=$(date +%s.%N)
    read -r load _ < /proc/loadavg
    memory=$(awk '/^MemTotal:/ { total = $2 } /^MemAvailable:/ { free = $2 }
                  END { printf "%.1f", (total - free) / 1024 }' /proc/meminfo)
    process_dirs=(/proc/[0-9]*)
    read -r cpu switch_rate < <(awk -v busy=$((new_busy - busy)) -v total=$((new_total - total)) \
        -v switches=$((new_switches - switches)) -v from="$before" -v to="$now" \
        'BEGIN { printf "%.1f %.0f\n", (total > 0 ? 100 * busy / total : 0), switches / (to - from) }')
    line=$(date -u -d "@$now" +%Y-%m-%dT%H:%M:%SZ),$load,$cpu,$memory,${#process_dirs[@]},$switch_rate
    if [ "$has_sensor" = yes ]; then
        line+=,$(hottest_sensor | awk '{ printf "%.1f", $1 / 1000 }')
    fi
    printf '%s\n' "$line"
    busy=$new_busy total=$new_total switches=$new_switches before=$now
done
