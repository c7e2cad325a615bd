# Installing, using, upgrading and removing, with the registry and the folders compared before and after.

prefix=${ORV_WINE_HOME:-$root/build/wine}/prefix

# registry FILE: the machine's and the user's part, as text. The installer keeps empty keys of its own for ever; with
# nothing in them they tell nothing.
registry() {
    local part
    rm -f "$1"
    for part in HKLM\\Software HKCU\\Software; do
        "${wine[@]}" reg export "$part" "Z:$work/part.reg" /y >/dev/null 2>&1
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
msiexec() { "${wine[@]}" msiexec "$@" /qn >/dev/null 2>&1; }

# The whole job of a list window, by the installed control.
use_installed() {
    "${wine[@]}" regsvr32 /s "Z:$root/$win64/bin/OrvSampleHost.dll" >/dev/null 2>&1
    ORV_WINE_LOCALE=C.UTF-8 "${wine[@]}" cscript //nologo "Z:$root/samples/scripts/filter.vbs" 2>/dev/null >"$work/script"
    "${wine[@]}" regsvr32 /s /u "Z:$root/$win64/bin/OrvSampleHost.dll" >/dev/null 2>&1
    expect "installed $1: a script gets SQL" "$(tr -d '\r' <"$work/script" | grep -cE '^(Initialize|GetFilterSql|same SQL): -1$')" 3
    expect "installed $1: the script ends" "$(tr -d '\r' <"$work/script" | tail -n 1)" "done: the host drops the control"
}

# The script host registers something of its own when it runs for the first time.
echo >"$work/empty.vbs"
"${wine[@]}" cscript //nologo "Z:$work/empty.vbs" >/dev/null 2>&1
for file in OrvSampleHost.dll ORVFilter.ocx; do
    "${wine[@]}" regsvr32 /s /u "Z:$root/$win64/bin/$file" >/dev/null 2>&1
done
registry "$work/before"
expect "nothing is installed at first" "$(installed_files)" ""

for scope in machine user; do
    case $scope in
    machine) msi=$packages/ORVFilter-$version-x64.msi folder="C:\\\\Program Files\\\\ORVFilter" ;;
    user) msi=$packages/ORVFilter-$version-x64-user.msi folder="C:\\\\users\\\\$(id -un)\\\\AppData\\\\Local\\\\Programs\\\\ORVFilter" ;;
    esac
    if msiexec /i "Z:$msi"; then pass "for the $scope: installs"; else fail "for the $scope: does not install"; fi
    registry "$work/after"
    count=$(comm -13 "$work/before" "$work/after" | grep -F '\Software\Classes\' | grep -vF Wow6432Node |
        grep -cF "$folder\\\\ORVFilter.ocx")
    expect "for the $scope: the registry names the installed file" "$count" 3
    if comm -23 "$work/before" "$work/after" | grep -qP '\t'; then fail "for the $scope: changes entries of others"; else pass "for the $scope: leaves others' entries alone"; fi
    case $scope in
    machine) root_key=HKEY_LOCAL_MACHINE other_root=HKEY_CURRENT_USER ;;
    user) root_key=HKEY_CURRENT_USER other_root=HKEY_LOCAL_MACHINE ;;
    esac
    added=$(comm -13 "$work/before" "$work/after")
    if grep -qF "[$root_key\\Software\\Classes\\ORVFilter.Filter\\CLSID]" <<<"$added" &&
        ! grep -qF "[$other_root\\Software\\Classes\\ORVFilter" <<<"$added"; then
        pass "for the $scope: registers there alone"
    else
        fail "for the $scope: registers elsewhere"
    fi
    if [ "$scope" = machine ]; then
        use_installed "for the machine"
    else
        # This Wine looks for classes in the machine's part alone, so a script does not find the user's control.
        run_package_tests "installed for the user" "$(dirname "$(installed_files | grep '/ORVFilter\.ocx$')")"
    fi
    if msiexec /x "Z:$msi"; then pass "for the $scope: uninstalls"; else fail "for the $scope: does not uninstall"; fi
    expect_no_trace "for the $scope"
done

# A newer version takes the place of an older one, and an older one is refused then.
newer=${version%.*}.$((${version##*.} + 1))
mkdir "$work/newer" && msiextract -C "$work/newer" "$packages/ORVFilter-$version-x64.msi" >/dev/null
folder=$(dirname "$(find "$work/newer" -name '*.ocx' -o -name '*.OCX')")
"${wine[@]}" "$win64/bin/registration_table.exe" "$win64/bin/ORVFilter.ocx" 2>/dev/null >"$work/printed"
tr -d '\r' <"$work/printed" >"$work/table"
packaging/make-wxs "$work/table" 64 machine "$newer" "$folder" >"$work/newer.wxs"
packaging/make-msi "$work/newer.wxs" "$folder" 64 "$newer" 1700000000 "$work/newer.msi"
products() { "${wine[@]}" reg query 'HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall' /s 2>/dev/null | tr -d '\r' |
    sed -n 's/.*DisplayName.*\(ORVFilter .*\)/\1/p' | paste -sd,; }
msiexec /i "Z:$packages/ORVFilter-$version-x64.msi"
msiexec /i "Z:$work/newer.msi"
expect "a newer version replaces the older one" "$(products)" "ORVFilter $newer (64-bit)"
if msiexec /i "Z:$packages/ORVFilter-$version-x64.msi"; then fail "an older version goes over a newer one"; else pass "an older version is refused"; fi
expect "the newer version stays" "$(products)" "ORVFilter $newer (64-bit)"
msiexec /x "Z:$work/newer.msi"
expect_no_trace "after the upgrade"

# Both bitnesses have keys in common: they go with the last one.
msiexec /i "Z:$packages/ORVFilter-$version-x64.msi"
msiexec /i "Z:$packages/ORVFilter-$version-x86.msi"
msiexec /x "Z:$packages/ORVFilter-$version-x86.msi"
use_installed "for the machine, after the 32-bit one has gone"
msiexec /x "Z:$packages/ORVFilter-$version-x64.msi"
# On Windows both bitnesses have the same ProgIDs, here each has its own: the 32-bit ones, left to the other package, are
# taken away by hand.
for prog_id in ORVFilter.Filter ORVFilter.Filter.1; do
    "${wine[@]}" reg delete "HKLM\\Software\\Classes\\Wow6432Node\\$prog_id" /f >/dev/null 2>&1
done
expect_no_trace "of both bitnesses"
