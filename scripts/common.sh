# SPDX-License-Identifier: GPL-3.0-or-later
# Shared by ./run and ./test: installs, configures and builds, quietly and only what is needed.

top=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
preset=${ORRIN_PRESET:-dev}
build="$top/build/$preset"

say() { printf '%s\n' "$*"; }

# build_targets [TARGET …]: brings the targets up to date; without one, everything.
build_targets() {
  local log="$build/build.log" jobs arguments=()
  "$top/scripts/install-dependencies" || return 1
  mkdir -p "$build"
  if [ ! -e "$build/build.ninja" ] || [ "$top/CMakePresets.json" -nt "$build/build.ninja" ]; then
    say "Configuring ($preset) ..."
    if ! (cd "$top" && cmake --preset "$preset") >"$build/configure.log" 2>&1; then
      tail -n 40 "$build/configure.log" >&2
      say "Configuring failed; the log is $build/configure.log" >&2
      return 1
    fi
  fi
  [ $# -gt 0 ] && arguments=(--target "$@")
  jobs=$(nproc 2>/dev/null || echo 2)
  say "Building ..."
  if [ -t 1 ]; then
    cmake --build "$build" -j "$jobs" "${arguments[@]}" || return 1
    return 0
  fi
  # Not a terminal: the log goes to a file, a line now and then says how far it is.
  cmake --build "$build" -j "$jobs" "${arguments[@]}" >"$log" 2>&1 &
  local pid=$! shown=
  while kill -0 "$pid" 2>/dev/null; do
    sleep 1
    local now
    now=$(grep -oE '^\[[0-9]+/[0-9]+\]' "$log" 2>/dev/null | tail -n 1 || true)
    if [ -n "$now" ] && [ $((SECONDS % 20)) -eq 0 ] && [ "$now" != "$shown" ]; then
      say "  $now"
      shown=$now
    fi
  done
  if ! wait "$pid"; then
    grep -E 'error|warning|FAILED' "$log" | head -n 40 >&2
    tail -n 30 "$log" >&2
    say "The build failed; its log is $log" >&2
    return 1
  fi
}

has_display() { [ -n "${DISPLAY:-}" ] || [ -n "${WAYLAND_DISPLAY:-}" ]; }

# with_virtual_display COMMAND …: runs it on an X server of its own that draws in software.
with_virtual_display() {
  QT_QPA_PLATFORM=xcb LIBGL_ALWAYS_SOFTWARE=1 \
    xvfb-run -a -s "-screen 0 1920x1200x24 -nolisten tcp" "$@"
}
