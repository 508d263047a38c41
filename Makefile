# SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
# SPDX-License-Identifier: GPL-3.0-or-later

# Quick start: `make run` and `make test`. Both install missing Debian packages first.
BUILD   ?= build
JOBS    ?= $(shell nproc)
SAMPLE  ?= samples/StakkoSample.skt

# Build tools and libraries (qt6-svg-dev renders the icons at build time); the soundfont plays
# MIDI; sox, vorbis-tools and lame make the sound tests' files; unzip and zip are the yardsticks
# of the package benchmarks and tests, and p7zip-full writes the Deflate64 packages the unpacking
# is compared with unzip on; xvfb runs the window tests on an X server too (xdotool types into
# the editor there before the system ends it), and libx11-dev and
# libxtst-dev let the from-outside benchmark read the screen and click on it, with the session
# bus of dbus-daemon beside it as on a desktop. The install tests
# validate with desktop-file-utils, appstream and shared-mime-info, render the manual pages with
# groff-base and find the completion folder through bash-completion; dpkg-dev and file let CPack
# compute the Debian package's dependencies. Sphinx builds the user manual, whose scripts the
# installed copy links from libjs-sphinxdoc. The package test checks the package with lintian,
# the programs with hardening-check (devscripts) and the sources' licences with reuse; ccache
# makes the package builds cheap. Qt's language tools compile the translations, and Qt's own
# catalogs translate its dialogs' buttons.
DEBIAN_PACKAGES = cmake ninja-build g++ pkg-config qt6-base-dev qt6-svg-dev libarchive-dev \
	libsdl2-mixer-dev timgm6mb-soundfont sox vorbis-tools lame unzip zip p7zip-full xvfb xauth xdotool \
	desktop-file-utils appstream shared-mime-info groff-base bash-completion dpkg-dev file \
	python3-sphinx libjs-sphinxdoc qt6-l10n-tools qt6-tools-dev qt6-translations-l10n \
	libsndfile1-dev libsamplerate0-dev qt6-image-formats-plugins imagemagick \
	libx11-dev libxtst-dev dbus-daemon \
	lintian devscripts reuse ccache git

# The package: a Release build of its own, without the tests.
PACKAGE_BUILD ?= build-package
CCACHE_LAUNCHER = $(if $(shell command -v ccache),-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)

# Every time stamp a build writes (archive members, resources) is the last commit's, unless the
# caller gives one.
SOURCE_DATE_EPOCH ?= $(shell git log -1 --format=%ct 2>/dev/null)
ifneq ($(SOURCE_DATE_EPOCH),)
export SOURCE_DATE_EPOCH
endif

# The fuzz targets: clang with its libFuzzer and sanitizer runtimes, in a build of their own.
FUZZ_BUILD    ?= build-fuzz
FUZZ_SECONDS  ?= 60
FUZZ_SMOKE_SECONDS ?= 30
FUZZ_PACKAGES  = clang libclang-rt-dev python3
# True when clang++ can link a libFuzzer target with both sanitizers.
FUZZ_TOOLCHAIN = printf 'extern "C" int LLVMFuzzerTestOneInput(const char *, unsigned long) { return 0; }\n' | \
	clang++ -x c++ -fsanitize=fuzzer,address,undefined -o /dev/null - >/dev/null 2>&1

.PHONY: all deps configure build test package check-reproducible run bench sample clean fuzz fuzz-deps fuzz-build fuzz-run fuzz-smoke

all: build

# $(call install_missing,PACKAGES): installs those of the Debian packages that are missing.
define install_missing
@missing=$$(for p in $(1); do \
	dpkg-query -W -f='$${Status}' $$p 2>/dev/null | grep -q 'ok installed' || echo $$p; done); \
if [ -n "$$missing" ]; then \
	sudo=; [ "$$(id -u)" -eq 0 ] || sudo=sudo; \
	echo "Installing Debian packages:" $$missing; \
	$$sudo apt-get update && \
	DEBIAN_FRONTEND=noninteractive $$sudo apt-get install -y --no-install-recommends $$missing; \
fi
endef

deps:
	$(call install_missing,$(DEBIAN_PACKAGES))

configure: deps
	@[ -f $(BUILD)/build.ninja ] || cmake -S . -B $(BUILD) -G Ninja

build: configure
	cmake --build $(BUILD) -j $(JOBS)

test: build
	cd $(BUILD) && QT_QPA_PLATFORM=offscreen SDL_AUDIODRIVER=dummy \
		ctest --output-on-failure -j $(JOBS)
	@$(MAKE) --no-print-directory fuzz-smoke
	@$(MAKE) --no-print-directory check-reproducible

# The Debian package: $(PACKAGE_BUILD)/stakko-theme-maker_VERSION_ARCH.deb.
package: deps
	@[ -f $(PACKAGE_BUILD)/build.ninja ] || cmake -S . -B $(PACKAGE_BUILD) -G Ninja \
		-DCMAKE_BUILD_TYPE=Release -DSTAKKO_TESTS=OFF -DSTAKKO_BUILD_TREE_MANUAL=OFF $(CCACHE_LAUNCHER)
	# umask 022 as dpkg-buildpackage sets it: CPack writes the builder's modes into the archive.
	umask 022 && cmake --build $(PACKAGE_BUILD) -j $(JOBS) --target package

# The last commit's package, built twice in two clones at different paths and times: the same bytes.
check-reproducible: deps
	dist/check-reproducible.sh $(JOBS)

# Each fuzz target for a short while when clang is here; the test run fails on any finding.
fuzz-smoke:
	@if $(FUZZ_TOOLCHAIN); then \
		$(MAKE) --no-print-directory fuzz-run FUZZ_SECONDS=$(FUZZ_SMOKE_SECONDS); \
	else \
		echo "*** Fuzz smoke test SKIPPED: clang++ with libFuzzer is not installed (make fuzz installs it)."; \
	fi

fuzz: fuzz-deps
	@$(MAKE) --no-print-directory fuzz-run

fuzz-deps: deps
	$(call install_missing,$(FUZZ_PACKAGES))

fuzz-build:
	@[ -f $(FUZZ_BUILD)/build.ninja ] || \
		cmake -S fuzz -B $(FUZZ_BUILD) -G Ninja -DCMAKE_CXX_COMPILER=clang++
	cmake --build $(FUZZ_BUILD) -j $(JOBS)

fuzz-run: fuzz-build
	python3 fuzz/make-corpus.py $(FUZZ_BUILD)/seeds
	fuzz/run-fuzzers.sh $(FUZZ_BUILD) $(FUZZ_SECONDS) $(JOBS)

# Only the programs: the tests wait for make test.
run: configure
	cmake --build $(BUILD) -j $(JOBS) --target programs
	@if [ -x $(BUILD)/src/app/stakko-theme-maker ] && { [ -n "$$DISPLAY" ] || [ -n "$$WAYLAND_DISPLAY" ]; }; then \
		$(BUILD)/src/app/stakko-theme-maker $(SAMPLE); \
	elif [ -x $(BUILD)/src/app/stakko-theme-maker ]; then \
		echo "No display found: writing screenshots of every page to $(BUILD)/screenshots instead."; \
		QT_QPA_PLATFORM=offscreen $(BUILD)/src/app/stakko-theme-maker --screenshot $(BUILD)/screenshots $(SAMPLE); \
		ls $(BUILD)/screenshots; \
	else \
		echo "The editor is not built yet: showing the sample theme with the command line tool."; \
		$(BUILD)/src/app/stakko-theme dump $(SAMPLE); \
	fi

bench: build
	cmake --build $(BUILD) --target benchmarks
	bench/run-benchmarks.sh $(BUILD)

sample: build
	cmake --build $(BUILD) --target make-sample
	$(BUILD)/samples/make-sample samples

clean:
	rm -rf $(BUILD) $(PACKAGE_BUILD) $(FUZZ_BUILD)
