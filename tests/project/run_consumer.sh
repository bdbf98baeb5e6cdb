#!/bin/sh
# run_consumer.sh PROGRAM shared|static VERSION: the consumer runs, and is linked as it should be.
set -eu
program=$1
linkage=$2
version=$3

expected="555, 1.0, @(#)PROGRAM:OVAddressBookSDK  PROJECT:OVAddressBookSDK-$version"
output=$("$program")
if [ "$output" != "$expected" ]; then
  echo "expected: $expected" >&2
  echo "printed:  $output" >&2
  exit 1
fi

if ldd "$program" | grep -q libOVAddressBookSDK; then found=shared; else found=static; fi
if [ $found != "$linkage" ]; then
  echo "the library is $found, not $linkage" >&2
  exit 1
fi
