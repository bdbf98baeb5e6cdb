#!/bin/sh
# install.sh BUILD PREFIX: installs into a new PREFIX, all of the interface and nothing else of it.
set -eu
build=$1
prefix=$2
headers=$(dirname "$0")/../../include

rm -rf "$prefix"
cmake --install "$build" --prefix "$prefix"

diff -r "$headers/OVAddressBookSDK" "$prefix/include/OVAddressBookSDK"
find "$prefix" -name LICENSE | grep -q .
! find "$prefix/include" -type f ! -name '*.h' | grep .
