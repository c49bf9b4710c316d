#!/bin/sh
# The gallery starts headless without a word on standard error and writes
# one picture per page, each named after the path given and its page.
# Usage: start_check.sh path/to/xwk-demo
set -eu
demo=$1
dir=$(mktemp -d)
trap 'rm -rf "$dir"' EXIT
env -u DISPLAY "$demo" --screenshot "$dir/gallery.png" >"$dir/out" 2>"$dir/err" || {
    echo "xwk-demo failed" >&2
    cat "$dir/err" >&2
    exit 1
}
if [ -s "$dir/err" ]; then
    echo "xwk-demo wrote to standard error:" >&2
    cat "$dir/err" >&2
    exit 1
fi
pages=$(wc -l <"$dir/out")
[ "$pages" -ge 6 ] || { echo "only $pages pages" >&2; exit 1; }
while read -r file; do
    case $file in
    "$dir"/gallery-*.png) ;;
    *) echo "unexpected name: $file" >&2; exit 1 ;;
    esac
    [ "$(head -c 4 "$file" | tail -c 3)" = "PNG" ] || { echo "no PNG: $file" >&2; exit 1; }
done <"$dir/out"
[ "$(ls "$dir"/gallery-*.png | wc -l)" -eq "$pages" ]
echo "$pages pages"
