# Installing, using, upgrading and removing, with the registry and the folders compared before and after.

prefix=${ORV_WINE_HOME:-$root/build/wine}/prefix

# registry FILE: the machine's and the user's part, as text. The installer keeps empty keys of its own for ever; with
# nothing in them they tell nothing.
registry() {
    local part
    rm -f "$1"
    for part in HKLM\\Software HKCU\\Software; do
        rm -f "$work/part.reg"
        # Seen once: an export that had written nothing.
        for _ in 1 2 3; do
            "${wine[@]}" reg export "$part" "Z:$work/part.reg" /y >/dev/null 2>&1 && [ -s "$work/part.reg" ] && break
        done
        [ -s "$work/part.reg" ] || fail "the registry can be read: $part"
        iconv -f UTF-16 -t UTF-8 "$work/part.reg" | tr -d '\r' >>"$1"
    done
    # One line a key.
    awk -v RS= '{ gsub(/\n/, "\t") } !(/\\(Installer[]\\]|Uninstall])/ && !/\t/)' "$1" | sort >"$1.sorted"
    mv "$1.sorted" "$1"
}
# expect_no_trace NAME: all keys and values are again as before. An empty key may have gone with others.
expect_no_trace() {
    registry "$work/after"
    comm -13 "$work/before" "$work/after" >"$work/came"
    comm -23 "$work/before" "$work/after" | grep -P '\t' >"$work/went"
    if [ -s "$work/came" ] || [ -s "$work/went" ]; then
        cat "$work/came" "$work/went"
        fail "$1: entries stay in the registry"
    else
        pass "$1: nothing stays in the registry"
    fi
    expect "$1: no file stays" "$(installed_files)" ""
}
installed_files() { find "$prefix/drive_c/Program Files" "$prefix/drive_c/Program Files (x86)" \
    "$prefix"/drive_c/users/*/AppData/Local/Programs -iname '*ORVF*' 2>/dev/null | sort; }
windows_path() { echo "C:${1#"$prefix/drive_c"}" | tr / '\\'; }
msiexec() { "${wine[@]}" msiexec "$@" /qn >/dev/null 2>&1; }
regsvr32() { "${wine[@]}" "$system\\regsvr32.exe" /s "$@" >/dev/null 2>&1; }
cscript() { "${wine[@]}" "$system\\cscript.exe" //nologo "Z:$1" 2>/dev/null | tr -d '\r'; }

# The whole job of a list window, by the installed control.
use_installed() {
    regsvr32 "Z:$root/$build/bin/OrvSampleHost.dll"
    ORV_WINE_LOCALE=C.UTF-8 cscript "$root/samples/scripts/filter.vbs" >"$work/script"
    regsvr32 /u "Z:$root/$build/bin/OrvSampleHost.dll"
    expect "installed $1: a script gets SQL" "$(grep -cE '^(Initialize|GetFilterSql|same SQL): -1$' "$work/script")" 3
    expect "installed $1: the script ends" "$(tail -n 1 "$work/script")" "done: the host drops the control"
}

# The script host registers something of its own when it runs for the first time.
echo >"$work/empty.vbs"
cscript "$work/empty.vbs"
# Left over from a broken run, a package or a registration would change what the tests see.
for key in "HKLM\\Software\\Microsoft" "HKLM\\Software\\Wow6432Node\\Microsoft"; do
    "${wine[@]}" reg query "$key\\Windows\\CurrentVersion\\Uninstall" /s 2>/dev/null | tr -d '\r' |
        awk '/^HKEY/ { key = $0 } /DisplayName.*ORVFilter/ { sub(/.*\\/, "", key); print key }'
done >"$work/products"
while read -r product; do
    msiexec /x "$product" </dev/null
done <"$work/products"
for file in OrvSampleHost.dll ORVFilter.ocx; do
    regsvr32 /u "Z:$root/$build/bin/$file"
done
registry "$work/before"
expect "nothing is installed at first" "$(installed_files)" ""

own=$packages/ORVFilter-$version-$arch
for scope in machine user; do
    case $scope in
    machine) msi=$own.msi classes=HKEY_LOCAL_MACHINE\\Software\\Classes\\$view other_root=HKEY_CURRENT_USER ;;
    # Here the user's classes are the same for both bitnesses; on Windows they are not.
    user) msi=$own-user.msi classes=HKEY_CURRENT_USER\\Software\\Classes\\ other_root=HKEY_LOCAL_MACHINE ;;
    esac
    if msiexec /i "Z:$msi"; then pass "for the $scope: installs"; else fail "for the $scope: does not install"; fi
    control=$(installed_files | grep '/ORVFilter\.ocx$')
    case $scope in
    machine) expect "for the machine: the folder" "$control" "$prefix/drive_c/$programs/ORVFilter/ORVFilter.ocx" ;;
    user) if [[ $control == */AppData/Local/Programs/ORVFilter*/ORVFilter.ocx ]]; then pass "for the user: the folder"; else fail "for the user: the folder is $control"; fi ;;
    esac
    registry "$work/after"
    if comm -23 "$work/before" "$work/after" | grep -qP '\t'; then fail "for the $scope: changes entries of others"; else pass "for the $scope: leaves others' entries alone"; fi
    added=$(comm -13 "$work/before" "$work/after")
    if grep -qF "[${classes}CLSID\\{3DF8583D-" <<<"$added" &&
        ! grep -F "[$other_root\\Software\\Classes\\" <<<"$added" | grep -q ORVFilter; then
        pass "for the $scope: registers there alone"
    else
        fail "for the $scope: registers elsewhere"
    fi
    # The control, asked to register itself from where it is installed, finds nothing to add or to change.
    case $scope in
    machine) regsvr32 "$(windows_path "$control")" ;;
    user) regsvr32 /n /i:user "$(windows_path "$control")" ;;
    esac
    registry "$work/again"
    if diff "$work/after" "$work/again"; then pass "for the $scope: what the control itself registers"; else fail "for the $scope: the control itself registers otherwise"; fi
    if [ "$scope" = machine ]; then
        use_installed "for the machine"
    else
        # This Wine looks for classes in the machine's part alone, so a script does not find the user's control.
        run_package_tests "installed for the user" "$(dirname "$control")"
    fi
    if msiexec /x "Z:$msi"; then pass "for the $scope: uninstalls"; else fail "for the $scope: does not uninstall"; fi
    expect_no_trace "for the $scope"
done

# A newer version takes the place of an older one, and an older one is refused then.
newer=${version%.*}.$((${version##*.} + 1))
mkdir "$work/newer" && msiextract -C "$work/newer" "$own.msi" >/dev/null
folder=$(dirname "$(find "$work/newer" -name '*.ocx' -o -name '*.OCX')")
sed 's/\\win32\t/\\win64\t/' "$work/table" >"$work/table64"
packaging/make-wxs "$work/table64" "$bits" machine "$newer" "$folder" >"$work/newer.wxs"
packaging/make-msi "$work/newer.wxs" "$folder" "$bits" "$newer" 1700000000 "$work/newer.msi"
products() { "${wine[@]}" reg query "HKLM\\Software\\${view}Microsoft\Windows\CurrentVersion\Uninstall" /s 2>/dev/null | tr -d '\r' |
    sed -n 's/.*DisplayName.*\(ORVFilter .*\)/\1/p' | paste -sd,; }
msiexec /i "Z:$own.msi"
msiexec /i "Z:$work/newer.msi"
expect "a newer version replaces the older one" "$(products)" "ORVFilter $newer ($bits-bit)"
if msiexec /i "Z:$own.msi"; then fail "an older version goes over a newer one"; else pass "an older version is refused"; fi
expect "the newer version stays" "$(products)" "ORVFilter $newer ($bits-bit)"
msiexec /x "Z:$work/newer.msi"
expect_no_trace "after the upgrade"

# Both bitnesses have keys in common: they go with the last one.
case $arch in x64) other=x86 ;; x86) other=x64 ;; esac
msiexec /i "Z:$own.msi"
msiexec /i "Z:$packages/ORVFilter-$version-$other.msi"
msiexec /x "Z:$packages/ORVFilter-$version-$other.msi"
use_installed "for the machine, after the other bitness has gone"
msiexec /x "Z:$own.msi"
# On Windows both bitnesses have the same ProgIDs, here each has its own: those left to the package that stayed are taken
# away by hand.
for prog_id in ORVFilter.Filter ORVFilter.Filter.1; do
    for key in "$prog_id" "Wow6432Node\\$prog_id"; do
        "${wine[@]}" reg delete "HKLM\\Software\\Classes\\$key" /f >/dev/null 2>&1
    done
done
expect_no_trace "of both bitnesses"
