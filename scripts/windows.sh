# Windows on this machine: what compiles for it, and Wine, which runs it. Sourced behind common.sh.

windows_packages=(g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix cmake ninja-build googletest)
wine_packages=(wine wine64 xvfb fonts-wine)

# Exports of a DLL, by name.
exports_of() {
    x86_64-w64-mingw32-objdump -p "$1" |
        sed -n '/^\[Ordinal\/Name Pointer\] Table/,/^$/s/^\t.* //p' | sort
}

# Programs find the driver libraries' operations by their plain names, on 32-bit Windows too.
check_exports() {
    local preset=$1 pair library declared
    for pair in PAPI:papi KORA_DLL32:kora_dll32 VXDVIDEO:vxdvideo; do
        library=${pair%:*}
        declared=$(sed -n 's/.*WINAPI \([A-Za-z0-9_]*\)(.*/\1/p' "$top/driver/${pair#*:}.h" | sort)
        if ! diff <(echo "$declared") <(exports_of "$top/build/$preset/bin/$library.dll"); then
            say "$preset: $library.dll does not export what its header declares"
            return 1
        fi
    done
    say "$preset: the driver libraries export every operation under its plain name"
}

# Icon, version and manifest lie in the program itself.
check_resources() {
    local preset=$1 resources kind
    resources=$(x86_64-w64-mingw32-windres -J coff -O rc -i "$top/build/$preset/bin/vxdtest.exe")
    for kind in RT_GROUP_ICON VERSIONINFO RT_MANIFEST; do
        grep -q "$kind" <<<"$resources" || { say "$preset: vxdtest.exe has no $kind"; return 1; }
    done
}

# Builds everything for 64-bit and 32-bit Windows.
build_windows() {
    local preset
    for preset in windows windows-i686; do
        build_preset "$preset"
        check_exports "$preset"
        check_resources "$preset"
    done
}

# Waits until a file has something in it, for so many seconds at most.
wait_for_content() {
    local file=$1 tenths=$(($2 * 10))
    until [ -s "$file" ]; do
        ((tenths-- > 0)) || return 1
        sleep 0.1
    done
}

# A new Windows on a display of its own. Both are gone when the script ends.
start_wine() {
    wine_folder=$(mktemp -d)
    export WINEPREFIX=$wine_folder/prefix
    unset WINEARCH
    trap stop_wine EXIT
    say "starting Wine"
    Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp \
        3>"$wine_folder/display" 2>"$wine_folder/xvfb.log" &
    wine_display=$!
    if ! wait_for_content "$wine_folder/display" 10; then
        say "Xvfb gives no display"
        cat "$wine_folder/xvfb.log"
        return 1
    fi
    DISPLAY=:$(cat "$wine_folder/display")
    export DISPLAY
    local wine=$top/scripts/wine
    timeout 300 "$wine" wineboot --init || { say "Wine does not start"; return 1; }
    # Windows lie on a desktop that Wine draws, frames and all, and that stays between programs:
    # the first window of each would otherwise have to wait for a new one. The command behind it
    # runs once the desktop is there.
    local desktop='HKCU\Software\Wine\Explorer'
    "$wine" reg add "$desktop" /v Desktop /d vxdtest /f >/dev/null
    "$wine" reg add "$desktop\\Desktops" /v vxdtest /d 1280x1024 /f >/dev/null
    "$wine" explorer /desktop=vxdtest,1280x1024 cmd /c 'echo there>C:\desktop' >/dev/null 2>&1 &
    if ! wait_for_content "$WINEPREFIX/drive_c/desktop" 60; then
        say "Wine's desktop is not there after 60 seconds"
        return 1
    fi
}

stop_wine() {
    wineserver -k 2>/dev/null || true
    kill "$wine_display" 2>/dev/null || true
    wait
    rm -rf "$wine_folder"
}

# Whether this machine's Wine runs 32-bit programs too. Asked of a program of its own: one of the
# project's that does not run is an error.
wine_runs_32_bit() {
    local status=0
    "$top/scripts/wine" 'C:\windows\syswow64\cmd.exe' /c 'exit 7' >/dev/null 2>&1 || status=$?
    ((status == 7))
}
