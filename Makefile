# The commands of the README. Each installs what is missing, configures, builds and runs.
PRESET ?= dev
BUILD := build/$(PRESET)
JOBS ?= $(shell nproc)

.PHONY: help setup configure build demo test check format tidy layering bench interop fuzz coverage torture clean

help:
	@echo "make demo    typed calls answered by a live bus, and a report run there"
	@echo "make test    every test               (PRESET=asan|tsan|release|coverage for another build)"
	@echo "make check   format, tidy, layering, tests"
	@echo "make bench   the benchmarks, optimised"
	@echo "make fuzz    every fuzzer for SECONDS=60 each"
	@echo "make coverage which lines the tests reach, per component and as pages"
	@echo "make torture every allocation failing once, CALLS=100000 calls while the bus is killed"
	@echo "make interop against SOAP stacks that others wrote (installs them)"
	@echo "make format  rewrites sources in the project's format"

setup:
	@./setup

configure: setup
	@cmake --preset $(PRESET) --log-level=NOTICE

build: configure
	@cmake --build --preset $(PRESET) -j $(JOBS)

demo: configure
	@cmake --build --preset $(PRESET) -j $(JOBS) --target mrl-bus first_call first_report
	@scripts/with-bus $(BUILD)/bin $(BUILD)/bin/first_call
	@scripts/with-bus $(BUILD)/bin $(BUILD)/bin/first_report $(BUILD)/demo

test: build
	@ctest --preset $(PRESET) -j $(JOBS)

check: build
	@scripts/check-format
	@scripts/check-layering
	@scripts/check-tidy $(BUILD)
	@ctest --preset $(PRESET) -j $(JOBS)

format: setup
	@scripts/check-format --fix

tidy: build
	@scripts/check-tidy $(BUILD)

layering:
	@scripts/check-layering

bench: PRESET := release
bench:
	@./setup --bench
	@cmake --preset release --log-level=NOTICE
	@cmake --build --preset release -j $(JOBS)
	@scripts/bench build/release/bin

interop:
	@./setup --interop
	@cmake --preset $(PRESET) -DMRL_INTEROP=ON --log-level=NOTICE
	@cmake --build --preset $(PRESET) -j $(JOBS) --target interop_programs
	@tests/interop/run $(BUILD)/bin

fuzz: SECONDS ?= 60
fuzz:
	@./setup --fuzz
	@cmake --preset fuzz --log-level=NOTICE
	@cmake --build --preset fuzz -j $(JOBS)
	@scripts/fuzz build/fuzz $(SECONDS)

coverage:
	@./setup --coverage
	@cmake --preset coverage --log-level=NOTICE
	@cmake --build --preset coverage -j $(JOBS)
	@find build/coverage -name '*.gcda' -delete
	@ctest --preset coverage -j $(JOBS); tested=$$?; scripts/coverage build/coverage && exit $$tested

torture: CALLS ?= 100000
torture: configure
	@cmake --build --preset $(PRESET) -j $(JOBS) --target fault_tests TavelTK_tests torture mrl-bus
	@$(BUILD)/bin/fault_tests
	@$(BUILD)/bin/torture $(BUILD)/bin/mrl-bus $(CALLS)
	@MRL_TORTURE=1 $(BUILD)/bin/TavelTK_tests --gtest_filter='Attachments.OfAnySize*'

clean:
	rm -rf build
