#!/usr/bin/env bash
# Carries a plan out by a Slurm of one node, which it starts in a folder of its own and stops after,
# and compares the summary with that of a run without Slurm, byte for byte; then parts of one run.
# Where Slurm is not installed or cannot start it says why and ends with status 77.
#
#   tests/slurm.sh [TOOL]        the tool is build/ovri by default
set -euo pipefail
cd "$(dirname "$0")/.."
tool=$(realpath "${1:-build/ovri}")

skip() {
    echo "slurm: Skipped"
    echo "$1"
    exit 77
}

PATH=$PATH:/usr/sbin:/sbin
for program in munged slurmctld slurmd sbatch squeue sinfo; do
    command -v $program >/dev/null ||
        skip "there is no $program here (on Debian: apt-get install slurm-wlm munge)"
done
[ "$(id -u)" -eq 0 ] || skip "a Slurm of its own is started by root alone"

work=$(mktemp -d)
started=()
stop_all() {
    for process in ${started[@]+"${started[@]}"}; do
        kill "$process" 2>/dev/null || true
    done
    for process in ${started[@]+"${started[@]}"}; do
        wait "$process" 2>/dev/null || true
    done
    rm -rf "$work"
}
trap stop_all EXIT
chmod 755 "$work"
mkdir -p "$work/state" "$work/spool" "$work/munge"
chmod 700 "$work/munge"

# Waits until a command succeeds: up to 20 seconds, with the processes still there.
await() {
    for _ in $(seq 100); do
        if "$@" >/dev/null 2>&1; then
            return 0
        fi
        for process in "${started[@]}"; do
            kill -0 "$process" 2>/dev/null || return 1
        done
        sleep 0.2
    done
    return 1
}

head -c 64 /dev/urandom > "$work/munge/key"
chmod 400 "$work/munge/key"
socket=$work/munge/socket
munged --force --foreground --key-file="$work/munge/key" --socket="$socket" \
    --pid-file="$work/munge/pid" --log-file="$work/munge/log" --seed-file="$work/munge/seed" \
    > "$work/munged.out" 2>&1 &
started+=($!)
await test -S "$socket" || skip "munged does not start here: $(tail -n 1 "$work/munged.out")"

# Two ports that nobody listens on.
port=20000
free_port() {
    while (exec 3<>"/dev/tcp/127.0.0.1/$port") 2>/dev/null; do
        port=$((port + 1))
    done
    echo $port
}
port=$((20000 + RANDOM % 20000))
controller=$(free_port)
port=$((controller + 1))
daemon=$(free_port)
host=$(hostname -s)
megabytes=$(awk '/^MemTotal/ { print int($2 / 1024) }' /proc/meminfo)
cat > "$work/slurm.conf" <<CONFIGURATION
ClusterName=one
SlurmctldHost=$host(127.0.0.1)
SlurmUser=root
SlurmdUser=root
AuthType=auth/munge
AuthInfo=socket=$socket
CryptoType=crypto/munge
SlurmctldPort=$controller
SlurmdPort=$daemon
StateSaveLocation=$work/state
SlurmdSpoolDir=$work/spool
SlurmctldPidFile=$work/slurmctld.pid
SlurmdPidFile=$work/slurmd.pid
SlurmctldLogFile=$work/slurmctld.log
SlurmdLogFile=$work/slurmd.log
ProctrackType=proctrack/linuxproc
TaskPlugin=task/none
JobAcctGatherType=jobacct_gather/none
AccountingStorageType=accounting_storage/none
MpiDefault=none
ReturnToService=2
SelectType=select/cons_tres
SelectTypeParameters=CR_Core
SchedulerParameters=sched_interval=1
NodeName=$host NodeAddr=127.0.0.1 CPUs=$(nproc) RealMemory=$megabytes State=UNKNOWN
PartitionName=all Nodes=$host Default=YES MaxTime=INFINITE State=UP
CONFIGURATION
export SLURM_CONF=$work/slurm.conf
slurmctld -D -c > "$work/slurmctld.out" 2>&1 &
started+=($!)
slurmd -D -c > "$work/slurmd.out" 2>&1 &
started+=($!)
is_idle() { sinfo -h -o %T | grep -q '^idle$'; }
await is_idle || skip "Slurm does not start here: $(cat "$work/slurmctld.out" "$work/slurmd.out" \
    "$work/slurmctld.log" "$work/slurmd.log" 2>/dev/null | grep -i 'error\|fatal' | tail -n 1)"

cp -r examples/batch "$work/plan"
cd "$work"
"$tool" batch plan/plan.toml -o local --quiet > local.out || true
"$tool" batch plan/plan.toml -o local --collect --no-times --quiet > local.out || true
"$tool" batch plan/plan.toml -o spread --emit slurm --quiet > /dev/null
begin=$SECONDS
OVRI=$tool spread/submit.sh > submitted
# The array and the merging behind it have left their last file.
is_over() { [ -z "$(squeue -h)" ]; }
await_end() {
    for _ in $(seq 20); do
        if await is_over && [ -e "$1/$2" ]; then
            return 0
        fi
    done
    squeue || true
    tail -n 5 "$1"/logs/* slurmctld.log slurmd.log || true
    echo "FAILED: the array of $1 did not come to its end"
    exit 1
}
await_end spread summary.csv
jobs=$(find spread/logs -name '*_*.txt' | wc -l)
"$tool" batch plan/plan.toml -o spread --collect --no-times --quiet > spread.out || true
for file in summary.csv summary.json; do
    cmp "local/$file" "spread/$file"
done
cmp local.out <(sed 's/spread/local/' spread.out)
echo "Slurm did $jobs tasks in $((SECONDS - begin)) s; the summary is that of the run without it."
[ "$jobs" -gt 0 ]

words=(simulate plan/villages.toml --samples 12 --parts=3 --threads 1 --quiet)
"$tool" "${words[@]}" -o whole > /dev/null
"$tool" "${words[@]}" -o parts --emit slurm > /dev/null
OVRI=$tool parts/submit.sh > submitted
await_end parts result.json
cmp whole/sample.csv parts/sample.csv
diff -r whole/networks parts/networks
echo "So are the networks of $(ls parts/parts | wc -l) parts."
