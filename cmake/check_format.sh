#!/bin/sh
# Fails, and lists them, if source files aren't as .clang-format asks. Every version
# formats a little differently: Debian 12's serves alone. Exits with 77, "skipped",
# without it.
cd "$(dirname "$(realpath "$0")")/.."
version=$(clang-format --version 2>/dev/null | sed 's/.*version \([0-9]*\).*/\1/')
if [ "$version" != 14 ]; then
    echo "clang-format 14 isn't installed."
    exit 77
fi
wrong=$(find src tests bench tools fonts -name '*.h' -o -name '*.cpp' | sort | while read -r file; do
    clang-format --dry-run --Werror "$file" >/dev/null 2>&1 || echo "$file"
done)
[ -z "$wrong" ] && exit 0
echo "Not formatted (clang-format -i mends it):"
echo "$wrong"
exit 1
