#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# The recipe for Slurm in docs/guide/several-machines.md, tried on this machine alone: starts a controller and a node
# of four tasks in a temporary folder, runs the array and the joining job on a folder of photos, compares the result
# with an undivided run, and ends what it started. Needs root, and the packages slurm-wlm and munge.
#     packaging/try_slurm.sh PROGRAM FOLDER-OF-PHOTOS
set -eu
program=$(realpath "$1")
photos=$(realpath "$2")
here=$(mktemp -d)
ended() {
    for daemon in slurmd slurmctld munged; do
        if [ -s "$here/$daemon.pid" ]; then kill "$(cat "$here/$daemon.pid")" 2>/dev/null || true; fi
    done
    sleep 1
    rm -rf "$here"
}
trap ended EXIT

mkdir -m 755 "$here/munge" "$here/spool" "$here/state"
chmod 755 "$here"
dd if=/dev/urandom of="$here/munge/key" bs=128 count=1 status=none
chmod 400 "$here/munge/key"
munged --force --key-file="$here/munge/key" --socket="$here/munge/socket" --pid-file="$here/munged.pid" \
    --log-file="$here/munge/log" --seed-file="$here/munge/seed"
node=$(hostname -s)
cat >"$here/slurm.conf" <<CONF
ClusterName=morva
SlurmctldHost=$node(127.0.0.1)
SlurmUser=root
SlurmctldPort=17817
SlurmdPort=17818
AuthType=auth/munge
AuthInfo=socket=$here/munge/socket
CredType=cred/munge
ProctrackType=proctrack/linuxproc
TaskPlugin=task/none
JobAcctGatherType=jobacct_gather/none
SchedulerType=sched/builtin
SelectType=select/cons_tres
SelectTypeParameters=CR_Core
StateSaveLocation=$here/state
SlurmdSpoolDir=$here/spool
SlurmctldPidFile=$here/slurmctld.pid
SlurmdPidFile=$here/slurmd.pid
SlurmctldLogFile=$here/slurmctld.log
SlurmdLogFile=$here/slurmd.log
ReturnToService=2
NodeName=$node NodeAddr=127.0.0.1 CPUs=$(nproc) State=UNKNOWN
PartitionName=all Nodes=$node Default=YES MaxTime=INFINITE State=UP
CONF
export SLURM_CONF="$here/slurm.conf"
slurmctld
slurmd
for try in 1 2 3 4 5 6 7 8 9 10; do
    if [ "$(sinfo -h -o %T)" = idle ]; then break; fi
    sleep 1
done

cat >"$here/crop.sh" <<JOB
#!/bin/sh
"$program" crop "$photos" --out "$here/crops" --force --jobs 1 --quiet \
    --shard "\$SLURM_ARRAY_TASK_ID/\$SLURM_ARRAY_TASK_COUNT"
JOB
"$program" crop "$photos" --out "$here/undivided" --force --quiet || [ $? -eq 1 ]
cd "$here"
array=$(sbatch --parsable --array=1-4 --output="$here/shard-%a.log" "$here/crop.sh")
sbatch --wait --dependency="afterany:$array" --output="$here/merge.log" --wrap="'$program' merge-reports '$here/crops'"
cat "$here"/shard-*.log "$here/merge.log"
rm "$here"/crops/*" of 4.csv"
diff -r "$here/undivided" "$here/crops"
echo "The array of four left what one program leaves: $(find "$here/crops" -name '*.jpg' | wc -l) crops and their report."
