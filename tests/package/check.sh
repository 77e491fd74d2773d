#!/usr/bin/env bash
# What a built program tree installs and packs, checked as root on Debian 12 (CI): validators,
# the exact file lists of an install and of the .deb, Depends, lintian; then the .deb installed
# with apt, the calendar started from PATH under Xvfb, and the package removed again.
#   tests/package/check.sh [build/app]    (after `make package`)
set -euo pipefail
build=$(realpath "${1:-build/app}")
src=$(realpath "$(dirname "$0")/../..")
id=io.github.qlvcal.CalendarLite
fail() { echo "FAIL: $*" >&2 && exit 1; }
debs=("$build"/qlvcallt_*_amd64.deb)
deb=${debs[0]}
{ [ ${#debs[@]} -eq 1 ] && [ -f "$deb" ]; } || fail "no single .deb in $build"

# Every file an install makes, under the prefix $1.
expected() {
  printf "$1%s\n" bin/qlvcallt "share/applications/$id.desktop" "share/metainfo/$id.metainfo.xml" \
    share/doc/qlvcallt/{README.md,changelog.gz,copyright} share/man/man1/qlvcallt.1.gz \
    "share/icons/hicolor/scalable/apps/$id.svg" \
    share/icons/hicolor/{16x16,22x22,24x24,32x32,48x48,64x64,128x128,256x256}/apps/$id.png |
    LC_ALL=C sort
}

echo "== desktop entry and metadata: no error, no warning"
out=$(desktop-file-validate "$src/data/$id.desktop" 2>&1) && echo "$out"
! grep -qE '(error|warning):' <<<"$out" || fail "desktop-file-validate"
appstreamcli validate --strict --no-net "$src/data/$id.metainfo.xml" || fail "appstreamcli validate"

echo "== cmake --install into a DESTDIR, under two prefixes"
for prefix in /usr /opt/qlvcal; do
  dest=$(mktemp -d)
  DESTDIR=$dest cmake --install "$build" --prefix "$prefix" >/dev/null
  diff <(expected ".$prefix/") <(cd "$dest" && find . ! -type d | LC_ALL=C sort) ||
    fail "files installed under $prefix"
  cmp "$src/README.md" "$dest$prefix/share/doc/qlvcallt/README.md"
  [ "$prefix" = /opt/qlvcal ] || appstreamcli validate-tree --strict --no-net "$dest$prefix" ||
    fail "appstreamcli validate-tree"
  rm -rf "$dest"
done

echo "== the package: $(basename "$deb"), $(stat -c %s "$deb") bytes"
dpkg-deb -I "$deb"
diff <(expected ./usr/) <(dpkg-deb -c "$deb" | awk '$1 !~ /^d/ { print $6 }' | LC_ALL=C sort) ||
  fail "files in the package"
[ "$(dpkg-deb -f "$deb" Package Version Architecture | tr '\n' ' ')" = \
  "Package: qlvcallt Version: 1.0.1 Architecture: amd64 " ] || fail "control fields"
# Depends: the package of each library the executable links, and the X11 platform plugin.
unpacked=$(mktemp -d)
dpkg-deb -x "$deb" "$unpacked"
wanted=$(readelf -d "$unpacked/usr/bin/qlvcallt" | sed -n 's/.*(NEEDED).*\[\(.*\)\]/\1/p' |
  while read -r so; do
    { dpkg -S "/usr/lib/x86_64-linux-gnu/$so" "/lib/x86_64-linux-gnu/$so" 2>/dev/null || true; } |
      head -n1 | cut -d: -f1
  done)
rm -rf "$unpacked"
diff <(printf '%s\n' "$wanted" qt6-qpa-plugins | LC_ALL=C sort -u) \
  <(dpkg-deb -f "$deb" Depends | tr ',' '\n' | awk '{ print $1 }' | LC_ALL=C sort -u) ||
  fail "Depends is not the linked libraries' packages plus qt6-qpa-plugins"
lintian --fail-on error,warning --display-info "$deb" || fail "lintian"

echo "== installed with apt, started from PATH"
remove() { if dpkg -s qlvcallt >/dev/null 2>&1; then apt-get remove -y -qq qlvcallt >/dev/null; fi; }
remove # left by an earlier run
home=$(mktemp -d)
trap 'rm -rf "$home"; remove' EXIT
DEBIAN_FRONTEND=noninteractive apt-get install -y -qq "$deb" >/dev/null
[ "$(command -v qlvcallt)" = /usr/bin/qlvcallt ] || fail "qlvcallt is not on PATH"
# shellcheck source=scripts/xvfb.sh
source "$src/scripts/xvfb.sh"
xvfb_start
trap 'xvfb_stop; rm -rf "$home"; remove' EXIT
(cd / && exec env -u XDG_CONFIG_HOME HOME="$home" LANG=C.UTF-8 qlvcallt) &
first=$!
xvfb_track "$first"
windows() { xdotool search --onlyvisible --name '^QLV Calendar Lite$' 2>/dev/null || true; }
wait_for_windows() {
  for _ in $(seq 100); do
    [ "$(windows | wc -l)" -eq "$1" ] && return 0
    sleep 0.2
  done
  fail "expected $1 calendar window(s), saw $(windows | wc -l)"
}
wait_for_windows 1
win=$(windows)
# The window class ties the window to its menu entry, and so to the entry's icon.
entry=/usr/share/applications/$id.desktop
grep -qx "Icon=$id" "$entry" || fail "the menu entry names another icon"
class=$(sed -n 's/^StartupWMClass=//p' "$entry")
xprop -id "$win" WM_CLASS | grep -qF ", \"$class\"" || fail "window class is not '$class'"
icon=$(xprop -id "$win" _NET_WM_ICON) # whole: grep -q would end xprop early with SIGPIPE
grep -qF 'Icon (22 x 22)' <<<"$icon" || fail "no window icon"
# Ctrl+N starts the installed program again; Alt+Q closes each calendar, which saves.
xdotool windowfocus --sync "$win" key ctrl+n
wait_for_windows 2
for w in $(windows); do
  pid=$(xdotool getwindowpid "$w")
  [ "$pid" = "$first" ] || xvfb_track "$pid"
  [ "$(readlink "/proc/$pid/exe")" = /usr/bin/qlvcallt ] || fail "window $w is not /usr/bin/qlvcallt"
  xdotool windowfocus --sync "$w" key alt+q
done
wait_for_windows 0
wait "$first" || fail "the calendar ended with status $?"
settings=$home/.config/QLVCalendarLite/qlvcal.ini
grep -q '^Language=English' "$settings" || fail "no settings saved in $settings"

echo "== removed with apt: none of its files left, the user's settings kept"
apt-get remove -y -qq qlvcallt >/dev/null
[ "$(dpkg-query -W -f='${db:Status-Status}' qlvcallt 2>/dev/null || echo not-installed)" = \
  not-installed ] || fail "the package is still known to dpkg"
for file in $(expected /usr/) /usr/share/doc/qlvcallt; do
  [ ! -e "$file" ] || fail "$file is left behind"
done
[ -f "$settings" ] || fail "the user's settings went with the package"
echo "package checks passed"
