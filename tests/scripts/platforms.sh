#!/usr/bin/env bash
# scripts/test-platforms with a pattern that selects nothing, and on a machine on which nothing can be installed.
# Usage: platforms.sh SOURCE SCRATCH
set -euo pipefail
source=$1 scratch=$2
rm -rf "$scratch"
mkdir -p "$scratch/bin"
for tool in apt-get sudo; do
    printf '#!/bin/sh\necho "%s $*" >>"%s/calls"\nexit 1\n' "$tool" "$scratch" >"$scratch/bin/$tool"
done
printf '#!/bin/sh\nexit 1\n' >"$scratch/bin/dpkg-query" # no package is installed
chmod +x "$scratch"/bin/*
export PATH="$scratch/bin:$PATH"

# expect STATUS PATTERN: runs the script with the pattern.
expect() {
    local status=0
    "$source/scripts/test-platforms" "$2" >"$scratch/output" 2>&1 || status=$?
    if [ "$status" -ne "$1" ]; then
        cat "$scratch/output"
        echo "test-platforms $2 ended with $status and not $1"
        exit 1
    fi
}

expect 2 no-such-platform
if [ -e "$scratch/calls" ]; then
    echo "It installs before it reads the pattern: $(cat "$scratch/calls")"
    exit 1
fi
expect 3 no-gnu-extensions
grep -q '^SKIPPED  no-gnu-extensions: cannot be installed: clang$' "$scratch/output"
grep -q '^apt-get\|^sudo' "$scratch/calls"
echo "as told"
