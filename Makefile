# Quick start: `make run` and `make test`. Both install missing Debian packages first.
BUILD   ?= build
JOBS    ?= $(shell nproc)
SAMPLE  ?= samples/StakkoSample.skt

DEBIAN_PACKAGES = cmake ninja-build g++ pkg-config qt6-base-dev libarchive-dev \
	libsdl2-mixer-dev timgm6mb-soundfont xvfb xauth imagemagick unzip zip \
	sox vorbis-tools lame

.PHONY: all deps configure build test run bench sample clean

all: build

deps:
	@missing=$$(for p in $(DEBIAN_PACKAGES); do \
		dpkg-query -W -f='$${Status}' $$p 2>/dev/null | grep -q 'ok installed' || echo $$p; done); \
	if [ -n "$$missing" ]; then \
		sudo=; [ "$$(id -u)" -eq 0 ] || sudo=sudo; \
		echo "Installing Debian packages:" $$missing; \
		$$sudo apt-get update && \
		DEBIAN_FRONTEND=noninteractive $$sudo apt-get install -y --no-install-recommends $$missing; \
	fi

configure: deps
	@[ -f $(BUILD)/build.ninja ] || cmake -S . -B $(BUILD) -G Ninja

build: configure
	cmake --build $(BUILD) -j $(JOBS)

test: build
	cd $(BUILD) && QT_QPA_PLATFORM=offscreen SDL_AUDIODRIVER=dummy \
		ctest --output-on-failure -j $(JOBS)

run: build
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
	@for b in $(BUILD)/bench/bench_*; do [ -x "$$b" ] && QT_QPA_PLATFORM=offscreen "$$b"; done; true

sample: build
	cmake --build $(BUILD) --target make-sample
	$(BUILD)/samples/make-sample samples

clean:
	rm -rf $(BUILD)
