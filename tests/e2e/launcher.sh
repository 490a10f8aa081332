#!/usr/bin/env bash
# Runs the launcher of the Debian package with a program that only tells what it was started as, and where.
# Usage: launcher.sh LAUNCHER-TEMPLATE
set -euo pipefail
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
mkdir "$folder/home" "$folder/own"
export HOME=$folder/home
link=$HOME/TrafficTools/Vantor

cat >"$folder/program" <<'END'
#!/bin/sh
echo "$(pwd -P)/$0"
END
sed "s|@vantor_program@|$folder/program|" "$1" >"$folder/launcher"
chmod +x "$folder/program" "$folder/launcher"

fail() { echo "FAILED: $*" >&2; exit 1; }

# Starts the launcher from elsewhere; the program must have been started in a folder: expect WHAT FOLDER.
expect() {
    local told
    told=$(cd "$folder" && ./launcher)
    [[ $told == "$folder/$2/./Vantor" ]] || fail "$1: $told"
}

expect "the first start makes the folder" home/TrafficTools
[[ $link -ef $folder/program ]] || fail "the link leads elsewhere"
expect "the next start finds it" home/TrafficTools
ln -sfn /no/such/program "$link"
expect "a link that leads nowhere is mended" home/TrafficTools

rm -r "$HOME/TrafficTools"
ln -s "$folder/own" "$HOME/TrafficTools"
cp "$folder/program" "$folder/own/Vantor"
expect "the folder is a link to the user's own, with a copy of the program" own
[[ ! -L $link ]] || fail "the user's copy was replaced"
