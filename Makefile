# The project's commands. `make help` lists them.
# BUILD_JOBS and TEST_JOBS: how much runs at a time.
BUILD_JOBS ?= $(shell nproc)
# Some tests wait for the disk or for other processes, so one more than there are cores.
TEST_JOBS ?= $(shell echo $$(($$(nproc) + 1)))

# Builds of the same file in several folders share one entry, also below ctest, which changes
# the locale; precompiled headers are cached.
export CCACHE_NOHASHDIR := 1
# The compiler tells what a file includes, so that nothing is preprocessed twice.
export CCACHE_DEPEND := 1
export CCACHE_SLOPPINESS := pch_defines,time_macros,locale

MAKEFLAGS += --no-print-directory

build_preset = cmake --build --preset $(1) -j $(BUILD_JOBS)
test_preset = ctest --preset $(1) -j $(TEST_JOBS)
# Files that are compiled together are looked at together: most of the time goes into the headers.
run_tidy = run-clang-tidy-14 -quiet -j $(BUILD_JOBS) -p build/asan-ubsan \
  'build/asan-ubsan/(src|hosts|tools)/.*/Unity/' '$(CURDIR)/(src|hosts|tools)/'

.DEFAULT_GOAL := help
.PHONY: help demo check setup build test coverage asan tsan tsan-live tidy analyze fuzz docs mutate format bench consumers cross abi-baseline packages packages-check pictures install clean

help: ## List the commands
	@sed -n 's/^\([a-z-]*\):.*## /  make \1\t/p' $(MAKEFILE_LIST) | expand -t 18

demo: ## Import a contacts file, snapshot it into a data block, restore it, show it
	@scripts/setup build
	@cmake --preset release --log-level=WARNING -DOV_BUILD_EDS=OFF -DOV_BUILD_QT=OFF
	@$(call build_preset,release) --target ovbook
	@scripts/demo build/release/tools/ovbook/ovbook examples/contacts.vcf build/demo

check: ## Build everything and run every test; the last lines tell the result
	scripts/setup
	$(MAKE) tidy
	$(MAKE) asan
	$(MAKE) tsan
	$(MAKE) test

setup: ## Install the Debian packages that are missing, FOR=check, analyze, bench, cross or packages
	scripts/setup $(FOR)

build: ## Build with g++, for debugging
	cmake --preset dev
	$(call build_preset,dev)

test: ## Build with g++, optimised as it ships, and run every test
	cmake --preset optimised
	$(call build_preset,optimised)
	$(call test_preset,optimised)

asan: ## Run the tests with clang, AddressSanitizer, UndefinedBehaviorSanitizer and counters
	cmake --preset asan-ubsan
	$(call build_preset,asan-ubsan)
	rm -rf build/asan-ubsan/counts
	$(call test_preset,asan-ubsan)
	scripts/coverage 95 build/asan-ubsan

coverage: asan ## The same, and write which lines of src/ the tests do not reach to build/coverage
	scripts/coverage 95 build/asan-ubsan build/coverage

tsan: ## Run the thread tests with clang and ThreadSanitizer
	cmake --preset tsan
	$(call build_preset,tsan) --target ov_thread_tests
	$(call test_preset,tsan)

tsan-live: ## The same for the tests of live books, with the real services
	cmake --preset tsan
	$(call build_preset,tsan) --target ov_live_thread_tests
	$(call test_preset,tsan-live)

tidy: ## Run clang-tidy over the library, the hosts and the tools
	cmake --preset asan-ubsan
	$(run_tidy)

fuzz: ## Fuzz the readers of data blocks, each for FUZZ_SECONDS=60 unless given
	cmake --preset fuzz
	$(call build_preset,fuzz) --target ov_fuzzers
	scripts/fuzz.py build/fuzz $(or $(FUZZ_SECONDS),60)

analyze: ## Have clang's analyzer and cppcheck follow the paths through the code; takes minutes
	cmake --preset asan-ubsan
	$(run_tidy) '-checks=-*,clang-analyzer-*'
	mkdir -p build/cppcheck
	cppcheck --quiet -j $(BUILD_JOBS) --cppcheck-build-dir=build/cppcheck --error-exitcode=1 \
	  --library=qt --enable=warning,performance,portability --inline-suppr --language=c++ --std=c++20 \
	  -I include -I src -I hosts/card -I hosts/eds/include -I hosts/vcard/include -I hosts/vcard/src -I hosts/qt/include \
	  -I hosts/qt/src src hosts

docs: ## Write the reference of the public headers to build/reference/html
	mkdir -p build/reference
	OV_REFERENCE_FOLDER=build/reference doxygen docs/Doxyfile

pictures: ## Draw docs/pictures/ from the contacts program
	cmake --preset optimised
	$(call build_preset,optimised) --target ovcontacts_pictures
	build/optimised/tools/ovcontacts/ovcontacts_pictures examples/contacts.vcf docs/pictures

mutate: ## Change src/ in MUTANTS=42 places, one at a time: the tests must notice 90 % or more
	scripts/mutate.py --count $(or $(MUTANTS),42) --seed $(or $(SEED),1) --jobs $(BUILD_JOBS) \
	  --equivalents scripts/equivalent_mutants.txt build/mutate

format: ## Format the sources
	scripts/format

bench: ## Measure the library against its peers; BENCH_SIZES=1000,10000,100000 unless given
	cmake --preset release -B build/bench -DOV_BUILD_BENCHMARKS=ON
	cmake --build build/bench -j $(BUILD_JOBS)
	bench/run.py build/bench build/bench/results --sizes $(or $(BENCH_SIZES),1000,10000,100000) \
	  --page docs/performance.md

consumers: ## Use the library as a subfolder with each compiler and standard, shared and static
	cmake --preset dev -B build/consumers -DOV_TEST_EVERY_CONSUMER=ON
	ctest --test-dir build/consumers -R consumer.add_subdirectory_ -j $(TEST_JOBS) --output-on-failure

cross: ## Build for s390x (big-endian), i386 (32 bits) and with libc++, test archives, compare blocks
	scripts/cross s390x $(BUILD_JOBS)
	scripts/cross i386 $(BUILD_JOBS)
	scripts/cross libc++ $(BUILD_JOBS)

abi-baseline: ## Store the binary interface of the shared library again
	cmake --preset optimised
	OV_STORE_ABI=1 $(call test_preset,optimised) -R project.abi

packages: ## Make Debian packages of what is committed, in build/package, and have lintian look at them
	rm -rf build/package
	mkdir -p build/package/source
	git archive HEAD | tar -x -C build/package/source
	cd build/package/source && CCACHE_DIR=$$(ccache -k cache_dir 2>/dev/null) \
	  DEB_BUILD_OPTIONS="noautodbgsym parallel=$(BUILD_JOBS)" dpkg-buildpackage -us -uc -b -tc
	lintian --info --fail-on error,warning build/package/*.changes

packages-check: packages ## Install the packages on a new, minimal Debian and run their tests there
	mmdebstrap --variant=apt --include=autopkgtest --format=null --customize-hook='copy-in build/package /srv' \
	  --chrooted-customize-hook='autopkgtest /srv/package/*.deb /srv/package/source/ -- null' bookworm -

install: ## Build optimised and install; PREFIX=/usr/local unless given
	cmake --preset release
	$(call build_preset,release)
	cmake --install build/release --prefix $(or $(PREFIX),/usr/local)

clean: ## Remove everything that was built
	rm -rf build
