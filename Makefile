# SPDX-License-Identifier: MIT
# The few commands a newcomer needs; each one installs what it misses first (see scripts/setup).
#
#   make run      build, then import the sample notebook into build/library and show the result
#   make build    build the desktop program, the headless runner and the library service
#   make test     build everything and run every test
#   make asan     every test under the address and undefined-behaviour sanitizers
#   make tsan     the tests of the queues and of the run under the thread sanitizer
#   make fuzz     every fuzz target for FUZZ_SECONDS (default 30) each
#   make bench    the benchmarks of the hot steps, then one whole run
#   make package  the Debian package, checked, installed on a fresh root and removed again (as root)
#   make format   rewrite the sources in the house's layout
#   make lint     static analysis and the tree's own rules
#   make clean    remove everything that was built

FUZZ_SECONDS ?= 30

.DEFAULT_GOAL := run
.PHONY: run build test asan tsan fuzz bench package format lint clean

run: build
	@scripts/import-examples

build:
	@scripts/setup build
	@scripts/build release vupuge vupuge-import vupuge-library

test:
	@scripts/setup build test
	@scripts/build release
	@scripts/run-tests release

asan:
	@scripts/setup build test
	@scripts/build asan
	@scripts/run-tests asan

# The remaining tests run on one thread: there is nothing for this sanitizer to see in them.
tsan:
	@scripts/setup build test
	@scripts/build tsan platform_operations_tests import_tests
	@build/tsan/bin/platform_operations_tests
	@build/tsan/bin/import_tests

fuzz:
	@scripts/setup build lint
	@scripts/build fuzz
	@scripts/run-fuzzers $(FUZZ_SECONDS)

bench:
	@scripts/setup build test
	@scripts/build release benchmarks vupuge-import enex-generator
	@scripts/run-benchmarks

package:
	@scripts/setup build test package
	@scripts/build release
	@scripts/check-package

format:
	@scripts/setup lint
	@git ls-files -z --cached --others --exclude-standard '*.cpp' '*.h' | xargs -0 clang-format -i

lint:
	@scripts/setup build lint
	@scripts/check-tree
	@scripts/lint

clean:
	@rm -rf build
