#!/bin/sh
# with_opengl.sh COMMAND...: runs it with a display of its own, on which the system's graphics draw and
# no software renderer of Qt's. Ends with 77 where there is no OpenGL.
ls /usr/lib/*/dri/swrast_dri.so >/dev/null 2>&1 || exit 77
folder=$(mktemp -d)
trap 'kill "$server" 2>/dev/null; rm -rf "$folder"' EXIT
Xvfb -displayfd 3 -screen 0 800x600x24 -nolisten tcp -noreset 3>"$folder/display" 2>"$folder/err" &
server=$!
tries=0
until [ -s "$folder/display" ]; do
  tries=$((tries + 1))
  [ $tries -lt 300 ] || { cat "$folder/err" >&2; exit 1; }
  sleep 0.1
done
export DISPLAY=":$(cat "$folder/display")" LIBGL_ALWAYS_SOFTWARE=1
export QT_QPA_PLATFORM=offscreen QT_QUICK_BACKEND=rhi QSG_RHI_BACKEND=opengl
"$@"
