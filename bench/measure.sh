# Sourced by the benchmarks: a folder $work for the run, and how a command is measured. Needs $runs.
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# Prints the median wall time in milliseconds and the highest memory in MB of a command, which must end with status 0 or one of
# those in $allowed.
measure() {
  local i times="" memory=0 wall kb
  for ((i = 0; i < runs; i++)); do
    rm -rf "$work/home"
    /usr/bin/time -q -f '%e %M' -o "$work/time" "$@" >/dev/null || [[ " ${allowed:-} " == *" $? "* ]]
    read -r wall kb <"$work/time"
    times+="$wall"$'\n'
    ((kb > memory)) && memory=$kb
  done
  printf '%s' "$times" | sort -n | awk -v kb="$memory" '{ t[NR] = $1 } END { printf "%d %d\n", t[int((NR + 1) / 2)] * 1000, kb / 1024 }'
}
