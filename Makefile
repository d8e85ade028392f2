# The front door: the same commands for a newcomer, a developer and the automatic tests. `make` alone says what there is.
#
# Each command first sees that what it needs is installed (scripts/packages.txt), then configures only where nothing is
# configured yet, builds only what has changed, and says on the way what it is at.

SHELL := /bin/bash
.DEFAULT_GOAL := help
.PHONY: help build run test tour bench lint asan package setup clean

# When this began, in seconds: each step says how long it has been since.
ifndef PLIMO_STARTED
PLIMO_STARTED := $(shell date +%s)
endif
export PLIMO_STARTED
export NINJA_STATUS = [%f/%t, %e s]$(empty) $(empty)
# Colours in a file are noise.
export CLICOLOR_FORCE =

# What `make run` hands to the program: make run ARGS="--drive M=/srv/music"
ARGS ?=

help:
	@echo "make run      build Plimo! and start it (ARGS=\"...\" for its options)"
	@echo "make test     build everything, run all tests, end with \"N passed, N failed\""
	@echo "make tour     let the program play a scene on a screen of its own, and take the pictures"
	@echo "make bench    time it on large libraries"
	@echo "make lint     check the formatting and look for suspicious code"
	@echo "make asan     run the tests with the address and undefined-behaviour sanitizers"
	@echo "make package  make a Debian package"
	@echo "make build    build the programs into build/bin and do no more"
	@echo "make clean    remove everything built"

# What each build folder is, CMakePresets.json says. Ninja configures again by itself when a CMake file changes.
build/build.ninja: preset = run
build-asan/build.ninja: preset = asan
build-bench/build.ninja: preset = bench
build-package/build.ninja: preset = package
build/build.ninja build-asan/build.ninja build-bench/build.ninja build-package/build.ninja: CMakePresets.json | setup
	@scripts/step "Configuring $(@D)"
	@cmake --preset $(preset) && touch $@

# The sections of scripts/packages.txt that the wanted commands need.
needs := build run
needs += $(if $(filter test asan,$(MAKECMDGOALS)),test)
needs += $(if $(filter tour,$(MAKECMDGOALS)),test tour)
needs += $(if $(filter bench,$(MAKECMDGOALS)),bench test)
needs += $(if $(filter lint,$(MAKECMDGOALS)),lint)
needs += $(if $(filter package,$(MAKECMDGOALS)),package)

setup:
	@scripts/setup $(needs)

build: build/build.ninja
	@scripts/step "Building the programs"
	@cmake --build --preset build

# Without a screen there is nothing to start the program on: the tour brings a screen of its own.
ifneq ($(DISPLAY)$(WAYLAND_DISPLAY),)
run: build/build.ninja
	@scripts/step "Building Plimo!"
	@cmake --build --preset run
	@scripts/run build/bin/plimo $(ARGS)
else
run:
	@scripts/step "There is no display here to start Plimo! on: taking the tour instead"
	@$(MAKE) --no-print-directory tour
endif

test: build/build.ninja
	@scripts/step "Building the programs and their tests"
	@cmake --build --preset test
	@scripts/test build

tour: build
	@scripts/step "Taking the tour"
	@scripts/tour build/bin

bench: build-bench/build.ninja
	@scripts/step "Building the benchmarks"
	@cmake --build --preset bench
	@scripts/step "Measuring"
	@bench/run build-bench/bin

lint: build/build.ninja
	@scripts/lint build

asan: build-asan/build.ninja
	@scripts/step "Building the tests with the sanitizers"
	@cmake --build --preset asan
	@scripts/test build-asan

package: build-package/build.ninja
	@scripts/step "Building for the package"
	@cmake --build --preset package
	@scripts/package build-package

clean:
	@rm -rf build build-asan build-bench build-package
