# The commands for users, developers and continuous integration; `make` alone lists them.
#
# Each command installs the packages that are missing (scripts/packages.txt), configures its build folder if it is new,
# builds what has changed, and prints its progress.

SHELL := /bin/bash
.DEFAULT_GOAL := help
.PHONY: help build program run test tour bench lint asan kill powercut fuzz monkey mutate tsan package windows \
        windows-test windows-pictures setup clean

# The start in seconds since 1970: each progress line shows the time since then.
ifndef PLIMO_STARTED
PLIMO_STARTED := $(shell date +%s)
endif
export PLIMO_STARTED
export NINJA_STATUS = [%f/%t, %e s]$(empty) $(empty)
# No colour codes in log files.
export CLICOLOR_FORCE =

# The arguments of the program that `make run` starts (ARGS="--drive M=/srv/music"), or of the tour (ARGS=--pictures).
ARGS ?=

help:
	@echo "make run      build Plimo! and start it (ARGS=\"...\" for its options)"
	@echo "make test     build everything, run all tests, end with \"N passed, N failed\""
	@echo "make tour     play a scene on a display of its own, take pictures of all panels"
	@echo "make bench    measure the times on large libraries"
	@echo "make lint     check the formatting and run clang-tidy"
	@echo "make asan     run the tests with the address and undefined-behaviour sanitizers"
	@echo "make fuzz     run the fuzz targets (SECONDS=n for each of them)"
	@echo "make monkey   do random things on the program in memory (ACTIONS=n)"
	@echo "make mutate   change the code in one place at a time, list what no test notices (FILES=\"src/fileops/*.cpp\")"
	@echo "make tsan     run the tests that use threads with the thread sanitizer"
	@echo "make kill     kill the program at each system call, and let each call fail (COMMANDS=... for some)"
	@echo "make powercut cut the power at each system call; needs root and loop devices"
	@echo "make package  make a Debian package"
	@echo "make windows  build everything for Windows, make its installer and its portable archive"
	@echo "make windows-test  the same, and run all tests under Wine"
	@echo "make build    build the programs into build/bin"
	@echo "make clean    remove everything built"

# The build folders are described in CMakePresets.json. Ninja configures again by itself when a CMake file changes.
build/build.ninja: preset = run
build-asan/build.ninja: preset = asan
build-fuzz/build.ninja: preset = fuzz
build-tsan/build.ninja: preset = tsan
build-bench/build.ninja: preset = bench
build-package/build.ninja: preset = package
presets := build build-asan build-fuzz build-tsan build-bench build-package
$(presets:%=%/build.ninja): CMakePresets.json | setup
	@scripts/step "Configuring $(@D)"
	@cmake --preset $(preset) && touch $@

# The commands of the program that `make kill` and `make powercut` go through (COMMANDS="accept save").
COMMANDS ?=

# Qt for Windows takes long if it has to be built.
build-windows/build.ninja: CMakePresets.json | setup
	@scripts/step "Configuring $(@D)"
	@qt=$$(scripts/windows-qt) && PLIMO_WINDOWS_QT_FOLDER=$$qt cmake --preset windows && touch $@

# Without a display, `make run` plays the scene of the tour instead of starting the program.
scene := $(if $(DISPLAY)$(WAYLAND_DISPLAY),,run)

# The sections of scripts/packages.txt for the commands to be run.
needs := build run
needs += $(if $(filter asan monkey tsan,$(MAKECMDGOALS)),test)
needs += $(if $(filter fuzz,$(MAKECMDGOALS)),fuzz)
needs += $(if $(filter test,$(MAKECMDGOALS)),display test)
needs += $(if $(filter mutate,$(MAKECMDGOALS)),test mutate)
needs += $(if $(filter kill powercut,$(MAKECMDGOALS)),test kill)
needs += $(if $(filter tour $(scene),$(MAKECMDGOALS)),display tour)
needs += $(if $(filter bench,$(MAKECMDGOALS)),display bench)
needs += $(if $(filter lint,$(MAKECMDGOALS)),lint)
needs += $(if $(filter windows windows-test windows-pictures,$(MAKECMDGOALS)),windows)
needs += $(if $(filter windows-test windows-pictures,$(MAKECMDGOALS)),display)
needs += $(if $(filter package,$(MAKECMDGOALS)),package)

setup:
	@scripts/setup $(needs)

build: build/build.ninja
	@scripts/step "Building the programs"
	@cmake --build --preset build

program: build/build.ninja
	@scripts/step "Building Plimo!"
	@cmake --build --preset run

run: program
ifeq ($(scene),)
	@scripts/run build/bin/plimo $(ARGS)
else
	@scripts/step "There is no display: playing a scene on a display of its own"
	@/usr/bin/python3 -B -m tests.tour --scene
endif

test: build/build.ninja
	@scripts/step "Building the programs and their tests"
	@cmake --build --preset test
	@scripts/test build

tour: program
	@scripts/step "Taking the tour"
	@/usr/bin/python3 -B -m tests.tour $(ARGS)

# The program for Windows is measured too if it has been built here.
bench: build-bench/build.ninja $(wildcard build-windows/build.ninja)
	@scripts/step "Building the benchmarks"
	@cmake --build --preset bench
	@[ ! -e build-windows/build.ninja ] || cmake --build --preset windows-bench
	@scripts/step "Measuring"
	@bench/run build-bench/bin

lint: build/build.ninja
	@scripts/lint build

asan: build-asan/build.ninja
	@scripts/step "Building the tests with the sanitizers"
	@cmake --build --preset asan
	@scripts/test build-asan --label-exclude desktop

# For each fuzz target.
SECONDS ?= 60
fuzz: build-fuzz/build.ninja
	@scripts/step "Building the fuzz targets"
	@cmake --build --preset fuzz
	@scripts/fuzz build-fuzz $(SECONDS)

# For each monkey.
ACTIONS ?= 20000
monkey: build/build.ninja
	@scripts/step "Building the monkeys"
	@cmake --build --preset monkey
	@scripts/step "Using the program in memory at random"
	@PLIMO_MONKEY_ACTIONS=$(ACTIONS) build/bin/plimo-monkey-tests
	@scripts/step "Using the real window at random"
	@PLIMO_MONKEY_ACTIONS=$(ACTIONS) build/bin/plimo-desktop-tests --gtest_filter='WindowMonkey.*'

# The files whose code is changed. It must be /usr/bin/python3 because the Debian package of clang is installed for it.
FILES ?= src/{playlists,playback,fileops,settings,prefs}/*
mutate: setup
	@/usr/bin/python3 -B -m tests.mutation $(FILES)

# The suites that start threads: two readers of a catalogue, the sort, the walk, writing the catalogue. In a file that is
# truncated while it is read, the signal handler replaces the mapping on purpose, which is reported as a race.
threaded := ^(CaseInsensitiveSort|Parallel|CatalogueFileTest|WritingTheCatalogue|LinuxWalkTest|ChangedFilesTest)
tsan: build-tsan/build.ninja
	@scripts/step "Building the tests of threads with the thread sanitizer"
	@cmake --build --preset tsan
	@scripts/test build-tsan --tests-regex '$(threaded)' --exclude-regex TruncatedMeanwhile

kill: build/build.ninja
	@scripts/step "Building the program that kills"
	@cmake --build build --target plimo-kill
	@scripts/step "Killing at each system call, and letting each fail"
	@build/bin/plimo-kill $(COMMANDS)

# Where it is not possible, plimo-kill says so and exits 77, which is no failure.
powercut: build/build.ninja
	@scripts/step "Building the program that kills"
	@cmake --build build --target plimo-kill
	@scripts/step "Cutting the power at each system call"
	@build/bin/plimo-kill --power-cut $(COMMANDS) || [ $$? -eq 77 ]

package: build-package/build.ninja
	@scripts/step "Building for the package"
	@cmake --build --preset package
	@scripts/package build-package

windows: build-windows/build.ninja
	@scripts/step "Building for Windows"
	@cmake --build --preset windows
	@scripts/package-windows build-windows

windows-test: windows
	@scripts/test build-windows

windows-pictures: windows
	@scripts/windows-pictures build-windows

clean:
	@rm -rf build build-*
