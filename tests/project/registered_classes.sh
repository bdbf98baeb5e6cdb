#!/bin/sh
# registered_classes.sh PROGRAM BLOCKS SOURCE: the program finds each class that SOURCE lists in the
# golden BLOCKS, though it names none of them.
set -eu
program=$1
blocks=$2
source=$3

sed -n 's/.*&\(OV[A-Za-z]*\)::archivedClass().*/\1/p' "$source" | LC_ALL=C sort >listed
"$program" "$blocks"/*.plist >found
grep -q OVLabel listed
if ! grep -Fxvf found listed >missing; then exit 0; fi
echo "not read as objects of their class:" >&2
cat missing >&2
exit 1
