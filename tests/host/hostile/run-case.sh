#!/usr/bin/env bash
# Runs one case of a table of hostile inputs: zorvo with the case's arguments, in this
# folder, under a memory limit, and compares its exit status and output with the row's.
#
#   run-case.sh ZORVO TABLE NAME MEMORY_KB
#
# A row is: name <TAB> zorvo arguments <TAB> exit status <TAB> extended regular
# expression that stdout and stderr together must match. In the arguments, @TMP@ is a
# fresh folder; the expression is matched line by line. MEMORY_KB 0 sets no limit (sanitizer builds reserve vast address space).
set -u
zorvo=$1 table=$2 name=$3 memory_kb=$4
cd "$(dirname "$table")"
row=$(awk -F'\t' -v n="$name" '$1 == n { print; exit }' "$(basename "$table")")
[ -n "$row" ] || { echo "no case '$name' in $table"; exit 1; }
IFS=$'\t' read -r _ args status regex <<<"$row"
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
read -r -a argv <<<"${args//@TMP@/$tmp}"
output=$(
  if [ "$memory_kb" -gt 0 ]; then ulimit -v "$memory_kb"; fi
  "$zorvo" "${argv[@]}" 2>&1
)
actual=$?
ok=1
if [ "$actual" != "$status" ]; then
  echo "exit status $actual, expected $status"
  ok=0
fi
if ! grep -Eq -- "$regex" <<<"$output"; then
  echo "output does not match: $regex"
  ok=0
fi
if [ "$ok" = 0 ]; then
  echo "--- zorvo ${argv[*]}"
  head -c 4000 <<<"$output"
  exit 1
fi
