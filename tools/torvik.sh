#!/usr/bin/env bash
# Developer entry point: `run` builds and starts Torvik on the demo game
# install, `test` builds and runs every test. Both install what is missing.
set -euo pipefail
cmd=${1:-run}
root=$(cd "$(dirname "$0")/.." && pwd)
build=${TORVIK_BUILD_DIR:-$root/build}

packages=(cmake ninja-build g++ pkg-config qt6-base-dev qt6-base-dev-tools qt6-svg-dev
          qt6-multimedia-dev qt6-image-formats-plugins
          libgl-dev libgtest-dev libgmock-dev libbenchmark-dev)
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  sudo=""; [ "$(id -u)" -ne 0 ] && sudo=sudo
  echo "Installing: ${missing[*]}"
  $sudo apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq "${missing[@]}" >/dev/null
fi

cmake -S "$root" -B "$build" -G Ninja >/dev/null
if [ "$cmd" = run ]; then
  # Only what the window needs: the tests and benchmarks wait for `test`.
  cmake --build "$build" --target torvik torvik-demo-install quake2-stub -- -j"$(nproc)"
else
  cmake --build "$build" -- -j"$(nproc)"
fi

case "$cmd" in
  run)
    demo="$build/demo"
    [ -d "$demo" ] || "$build/bin/torvik-demo-install" "$demo"
    # Point Torvik at the demo install unless the user already chose locations.
    if [ ! -e "$build/bin/quake2.loc" ] && [ ! -e "$build/bin/gorvan.loc" ]; then
      printf '"%s"\r\n' "$demo/quake2" > "$build/bin/quake2.loc"
      printf '"%s"\r\n' "$demo/gorvan/GAMEX86.DLL" > "$build/bin/gorvan.loc"
    fi
    exec "$build/bin/torvik"
    ;;
  test)
    export QT_QPA_PLATFORM=offscreen
    ctest --test-dir "$build" --output-on-failure -j"$(nproc)"
    ;;
  *) echo "usage: $0 run|test" >&2; exit 2 ;;
esac
