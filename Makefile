# The two commands: `make run` and `make test`. Both install what is missing first.
BUILD ?= build
TYPE ?= RelWithDebInfo
JOBS ?= 2

.PHONY: run test stress deps configure build bench fuzz clean install uninstall package package-check

run: build
	scripts/run.sh $(BUILD)

test: build
	cd $(BUILD) && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j$(JOBS)

# Kills kvlr at random moments and runs two at once; not part of `make test`.
stress: build
	$(BUILD)/tests/stress/kvlr_stress $(BUILD)/cli/kvlr

deps:
	scripts/install-deps.sh

configure: deps
	cmake -S . -B $(BUILD) -G Ninja -DCMAKE_BUILD_TYPE=$(TYPE)

build: configure
	cmake --build $(BUILD) -j$(JOBS)

# Installs under PREFIX (DESTDIR, if set, stages it), then refreshes the desktop's caches.
PREFIX ?= /usr/local
install: build
	DESTDIR="$(DESTDIR)" cmake --install $(BUILD) --prefix $(PREFIX)
	scripts/install-tree.sh refresh "$(DESTDIR)$(PREFIX)"

# Removes what the last `make install` put there.
uninstall:
	scripts/install-tree.sh uninstall $(BUILD) "$(DESTDIR)$(PREFIX)"

# A Debian package of what `make install` installs, its dependencies read by dpkg-shlibdeps.
package: build
	scripts/install-deps.sh dpkg-dev file
	rm -f $(BUILD)/kvl-r_*.deb
	cd $(BUILD) && cpack -G DEB

# Installs the package into a throw-away root (unpacks it when not root), runs it, removes it.
package-check: package
	scripts/check-package.sh $(BUILD)/kvl-r_*.deb

bench: build
	for b in $(BUILD)/bench/bench_*; do $$b; done

# libFuzzer targets of the file readers, built with clang, each run for FUZZ_SECONDS.
FUZZ_SECONDS ?= 60
fuzz:
	scripts/install-deps.sh clang
	cmake -S fuzz -B build-fuzz -G Ninja -DCMAKE_CXX_COMPILER=clang++
	cmake --build build-fuzz -j$(JOBS)
	for t in build-fuzz/fuzz_*; do \
	  mkdir -p build-fuzz/corpus/$$(basename $$t) && \
	  $$t -max_total_time=$(FUZZ_SECONDS) -max_len=4000 build-fuzz/corpus/$$(basename $$t) || exit 1; \
	done

clean:
	rm -rf $(BUILD) build-fuzz
