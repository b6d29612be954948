# The two commands: `make run` and `make test`. Both install what is missing first.
BUILD ?= build
TYPE ?= RelWithDebInfo
JOBS ?= 2

.PHONY: run test deps configure build bench clean

run: build
	scripts/run.sh $(BUILD)

test: build
	cd $(BUILD) && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j$(JOBS)

deps:
	scripts/install-deps.sh

configure: deps
	cmake -S . -B $(BUILD) -G Ninja -DCMAKE_BUILD_TYPE=$(TYPE)

build: configure
	cmake --build $(BUILD) -j$(JOBS)

bench: build
	for b in $(BUILD)/bench/bench_*; do $$b; done

clean:
	rm -rf $(BUILD)
