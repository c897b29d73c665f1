#!/usr/bin/env bash
# Builds the .deb from the test build, installs it with its dependencies, checks the installed files, runs the
# installed program through the desktop run and a throwaway user's alarm through the wake-up helper, then removes
# it again. Run after scripts/test.sh.
set -euo pipefail
cd "$(dirname "$0")/.."
sudo=""
[ "$(id -u)" -ne 0 ] && sudo="sudo"
[ -d build-test ] || { echo "build-test is missing: run scripts/test.sh first"; exit 1; }
(cd build-test && rm -f bellwick_*.deb && cpack -G DEB >/dev/null)
deb=$(ls "$PWD"/build-test/bellwick_*.deb)
echo "== $deb"
$sudo env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq "$deb" >/dev/null
trap '$sudo dpkg -r bellwick >/dev/null' EXIT
for f in /usr/bin/bellwick /usr/share/bellwick/ding.wav /usr/share/bellwick/didi.snd /usr/share/bellwick/air.mid \
    /usr/share/bellwick/help/tolmhelp.html /usr/share/icons/hicolor/scalable/apps/bellwick.svg \
    /usr/share/applications/bellwick.desktop; do
    [ -s "$f" ] || { echo "FAIL: $f was not installed"; exit 1; }
done
desktop-file-validate /usr/share/applications/bellwick.desktop
/usr/bin/bellwick --version | grep -q "^bellwick " || { echo "FAIL: the installed program does not answer --version"; exit 1; }
# Read from the package itself: minimal systems may be set to drop manual pages on install.
manual=$(mktemp)
dpkg-deb --fsys-tarfile "$deb" | tar -xOf - ./usr/share/man/man1/bellwick.1.gz | gunzip >"$manual"
warnings=$(LC_ALL=C.UTF-8 MANWIDTH=80 man --warnings -E UTF-8 -l "$manual" 2>&1 >/dev/null)
grep -q '^\.TH BELLWICK 1' "$manual" && [ -z "$warnings" ] || { echo "FAIL: the packaged manual page: $warnings"; exit 1; }
rm -f "$manual"
tests/e2e/cli_run.sh /usr/bin/bellwick
# The wake-up capability sits on the helper alone, and the helper arms the timer for a user who has none.
getcap /usr/libexec/bellwick/bellwick-wake | grep -q 'cap_wake_alarm[=+]ep' ||
    { echo "FAIL: the installed helper lacks cap_wake_alarm: '$(getcap /usr/libexec/bellwick/bellwick-wake)'"; exit 1; }
[ -z "$(getcap /usr/bin/bellwick)" ] || { echo "FAIL: the program itself holds a capability"; exit 1; }
$sudo tests/e2e/wake_run.sh /usr/bin/bellwick helper
echo "package: installs, validates and runs"
