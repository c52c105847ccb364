#!/usr/bin/env bash
# scripts/prove with an oracle that does not return from its operations, and with one that has none. Usage: prove.sh SOURCE SCRATCH
set -euo pipefail
source=$1 scratch=$2
rm -rf "$scratch"
mkdir -p "$scratch/bin" "$scratch/build/release/tests/oracle"
cp -r "$source/scripts" "$scratch/"
printf '#!/bin/sh\nexit 0\n' >"$scratch/bin/cmake"
cp "$scratch/bin/cmake" "$scratch/scripts/install-dependencies"
touch "$scratch/build/release/libvexor.so"
cat >"$scratch/build/release/tests/oracle/vexor_oracle" <<'ORACLE'
#!/bin/sh
[ "$1" = --teeth ] && exit 0
echo "seed 1"
echo "an operation   10   0"
exec sleep 600
ORACLE
chmod +x "$scratch/bin/cmake" "$scratch/build/release/tests/oracle/vexor_oracle"

status=0
PATH="$scratch/bin:$PATH" timeout 120 "$scratch/scripts/prove" --cases 10 --seed 1 --jobs 60 --fuzz 0 --limit 1 \
    >"$scratch/output" 2>&1 || status=$?
if [ "$status" -ne 1 ] || ! grep -q '^Piece 7 was stopped after 1 seconds, in the operation after: an operation   10   0$' \
    "$scratch/output" || ! grep -q '^failed: piece 7 of the operations' "$scratch/output"; then
    cat "$scratch/output"
    echo "prove ended with $status"
    exit 1
fi

cat >"$scratch/build/release/tests/oracle/vexor_oracle" <<'ORACLE'
#!/bin/sh
case $1 in --table) echo "0 operations, 0 cases, 0 differing" ;; esac
ORACLE
status=0
PATH="$scratch/bin:$PATH" timeout 120 "$scratch/scripts/prove" --cases 10 --seed 1 --jobs 60 --fuzz 0 --elementary 0 \
    >"$scratch/output" 2>&1 || status=$?
if [ "$status" -ne 1 ] || ! grep -q '^0 operations, 0 cases, 0 differing$' "$scratch/output"; then
    cat "$scratch/output"
    echo "prove without operations ended with $status"
    exit 1
fi
echo "as told"
