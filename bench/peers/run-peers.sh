#!/usr/bin/env bash
# Runs each peer program at each size, every run in a fresh process, and writes the report.
# Usage: run-peers.sh --bin-dir DIR --out-dir DIR [--runs N] [--sizes "1000 10000 30000"] [--smoke]
# --smoke: each peer once at 1,000 rows (the CTest); fails when a peer fails, exits 77 (skipped)
# when the wx peer was not built.
set -euo pipefail

bin_dir=""
out_dir=""
runs=5
sizes="1000 10000 30000"
smoke=0
while [ $# -gt 0 ]; do
  case "$1" in
    --bin-dir) bin_dir="$2"; shift 2 ;;
    --out-dir) out_dir="$2"; shift 2 ;;
    --runs) runs="$2"; shift 2 ;;
    --sizes) sizes="$2"; shift 2 ;;
    --smoke) smoke=1; shift ;;
    *) echo "run-peers.sh: unknown argument $1" >&2; exit 1 ;;
  esac
done
[ -n "$bin_dir" ] && [ -n "$out_dir" ] || { echo "usage: run-peers.sh --bin-dir DIR --out-dir DIR" >&2; exit 1; }
if [ "$smoke" -eq 1 ]; then runs=1; sizes=1000; fi
mkdir -p "$out_dir"
raw="$out_dir/raw.tsv"
: > "$raw"

peers=(ours ours-qt qtreewidget)
if [ -x "$bin_dir/txal-peer-wxpropertygrid" ]; then
  peers+=(wxpropertygrid)
elif [ "$smoke" -eq 1 ]; then
  # The smoke test's "skipped" (its SKIP_RETURN_CODE): without wxWidgets there is nothing to compare.
  echo "run-peers.sh: wxWidgets is not installed (make bench-peers installs it): skipped"
  exit 77
fi
command -v Xvfb > /dev/null || [[ " ${peers[*]} " != *" wxpropertygrid "* ]] || { echo "run-peers.sh: Xvfb is missing" >&2; exit 1; }

# On a shared machine the peers run at a raised priority (where allowed), so that other work
# disturbs the wall-clock figures less; every peer gets the same.
priority=()
if [ "$(id -u)" -eq 0 ]; then priority=(nice -n -10); fi

# The wx peer draws into a virtual X server of its own, started once for the whole run.
xvfb_pid=""
cleanup() { [ -n "$xvfb_pid" ] && kill "$xvfb_pid" 2>/dev/null || true; }
trap cleanup EXIT
if [[ " ${peers[*]} " == *" wxpropertygrid "* ]]; then
  display_file=$(mktemp)
  "${priority[@]}" Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>"$display_file" 2>/dev/null &
  xvfb_pid=$!
  for _ in $(seq 50); do [ -s "$display_file" ] && break; sleep 0.1; done
  [ -s "$display_file" ] || { echo "run-peers.sh: Xvfb did not start" >&2; exit 1; }
  export DISPLAY=":$(head -n1 "$display_file")"
  rm -f "$display_file"
fi

run_peer() {
  case "$1" in
    ours) "${priority[@]}" "$bin_dir/txal-peer-ours" --rows "$2" ;;
    ours-qt) "${priority[@]}" "$bin_dir/txal-peer-ours" --qt --rows "$2" ;;
    qtreewidget) "${priority[@]}" "$bin_dir/txal-peer-qtreewidget" --rows "$2" ;;
    wxpropertygrid) "${priority[@]}" "$bin_dir/txal-peer-wxpropertygrid" --rows "$2" ;;
  esac
}

load_before=$(cut -d' ' -f1-3 /proc/loadavg)

# Sizes outside, runs in the middle, peers inside: a slow spell of the machine hits every peer.
for size in $sizes; do
  for run in $(seq "$runs"); do
    for peer in "${peers[@]}"; do
      if ! output=$(run_peer "$peer" "$size" 2>"$out_dir/stderr.txt"); then
        echo "run-peers.sh: $peer at $size rows failed:" >&2
        echo "$output" >&2
        cat "$out_dir/stderr.txt" >&2
        exit 1
      fi
      while IFS= read -r line; do
        printf '%s\t%s\t%s\t%s\n' "$peer" "$size" "$run" "$line" >> "$raw"
      done <<< "$output"
      echo "$peer $size rows, run $run: $(echo "$output" | tr '\t\n' '= ' )"
    done
  done
done

machine="$out_dir/machine.txt"
{
  echo "CPU:      $(grep -m1 'model name' /proc/cpuinfo | cut -d: -f2- | sed 's/^ //') ($(nproc) cores)"
  echo "Memory:   $(free -h | awk '/^Mem:/ {print $2}')"
  echo "System:   $(. /etc/os-release && echo "$PRETTY_NAME"), Linux $(uname -r)"
  echo "Compiler: $(c++ --version | head -n1)"
  echo "Qt:       $(dpkg-query -W -f='${Version}' qt6-base-dev 2>/dev/null || echo unknown) (offscreen platform)"
  echo "wx:       $(dpkg-query -W -f='${Version}' libwxgtk3.2-dev 2>/dev/null || echo 'not installed') (GTK 3 under Xvfb)"
  echo "Priority: ${priority[*]:-normal} (load average before the run: $load_before)"
  echo "Command:  make bench-peers"
} > "$machine"
"$bin_dir/txal-peer-report" "$raw" "$machine" "$out_dir"
