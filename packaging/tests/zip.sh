# The zip: what is in it, the control without registration, and the samples, built and run with nothing else.

for packed in x64 x86; do
    mkdir -p "$work/zip"
    (cd "$work/zip" && unzip -q "$packages/ORVFilter-$version-$packed.zip")
    folder=$work/zip/ORVFilter-$version-$packed
    missing=$(for file in ORVFilter.ocx ORVFilter.tlb ORVFilter.manifest README.txt register.cmd unregister.cmd \
        include/ORVFilter.idl include/ORVFilter.h include/ORVFilter_i.c samples/scripts/conditions.vbs \
        samples/cpp/CMakeLists.txt samples/cpp/early-bound/main.cpp samples/cpp/dialog-host/main.cpp; do
        [ -s "$folder/$file" ] || echo "$file"
    done)
    expect "$packed zip: everything is in it" "$missing" ""
    expect "$packed zip: every name is filled in" "$(grep -rlE '@[A-Z]+@' "$folder" --include='*.txt' --include='*.cmd' --include='*.manifest')" ""
    # Links between documents, and the files of the zip that they and the texts beside them name.
    lost=$(cd "$folder" && for document in docs/*.md docs/host-guide/*.md; do
        grep -oP '\]\(\K[^)#:]+(?=[)#])' "$document" | while read -r link; do
            [ -e "$(dirname "$document")/$link" ] || echo "$document: $link"
        done
    done
    grep -rhoE '\b(samples|docs|include)/[A-Za-z0-9_./-]*[A-Za-z0-9]' README.txt docs samples --include='*.txt' --include='*.md' \
        --include='*.vbs' | sort -u | while read -r path; do [ -e "$path" ] || echo "$path"; done)
    expect "$packed zip: what its documents name is in it" "$lost" ""
    expect "$packed zip: no path of the building machine" "$(grep -rlF "$root" "$folder")" ""
done
folder=$work/zip/ORVFilter-$version-$arch
run_package_tests "the unpacked zip" "$folder"

# The helpers register and unregister the control beside them, and tell when they cannot. Names of classes are those of
# both bitnesses; a Wine prefix may keep those of 32-bit programs apart all the same.
helper() { "${wine[@]}" cmd /c "Z:$folder/$1" ${2:+"$2"} >/dev/null 2>&1; }
is_registered() {
    local place
    for place in "$1" "$1\\${view%\\}"; do
        "${wine[@]}" reg query "$place\\ORVFilter.Filter\\CLSID" >/dev/null 2>&1 && { echo yes; return; }
    done
    echo no
}
for scope in machine user; do
    case $scope in
    machine) argument="" classes="HKLM\\Software\\Classes" ;;
    user) argument=user classes="HKCU\\Software\\Classes" ;;
    esac
    helper register.cmd "$argument"
    expect "register.cmd for the $scope" "$? $(is_registered "$classes")" "0 yes"
    helper unregister.cmd "$argument"
    expect "unregister.cmd for the $scope" "$? $(is_registered "$classes")" "0 no"
done
mv "$folder/ORVFilter.ocx" "$folder/elsewhere"
helper register.cmd ""
expect "register.cmd without the control" $? 1
mv "$folder/elsewhere" "$folder/ORVFilter.ocx"

samples=$folder/samples/cpp/build
if cmake -S "$folder/samples/cpp" -B "$samples" -G Ninja -DCMAKE_BUILD_TYPE=Release -DCMAKE_SYSTEM_NAME=Windows \
    -DCMAKE_C_COMPILER=$triple-gcc-posix -DCMAKE_CXX_COMPILER=$triple-g++-posix \
    -DCMAKE_RC_COMPILER=$triple-windres >"$work/samples.log" 2>&1 &&
    cmake --build "$samples" -j2 >>"$work/samples.log" 2>&1; then
    pass "the C++ samples are built from the zip alone"
else
    tail -n 30 "$work/samples.log"
    fail "the C++ samples are not built from the zip alone"
fi
expect "they compile without a warning" "$(grep -c 'warning:' "$work/samples.log")" 0

# By column: date from a day on, and (customer contains, or amount above), and an item of a list.
sql="filter:  ( convert(char(10),t_Receipt.FDate,120)>=  '2024-02-01'    AND ( t_Receipt.FCustomer LIKE  '%贸易%'   OR  isnull(t_Receipt.FAmount,0)> 1000.5 ) AND  t_Receipt.FStatus= 1 ) "
printed() { tr -d '\r' <"$work/sample" | tr '\n' ' '; }
"${wine[@]}" "$samples/early-bound.exe" 2>/dev/null >"$work/sample"
expect "early-bound ends well" $? 0
expect "early-bound prints the texts" "$(printed)" "scheme applied: yes $sql sort: t_Receipt.FDate  ASC  columns: FDate FCustomer FAmount FStatus schemes: 1, Default Schema the server's date is today's: yes "
# A component that the host does not offer is named.
manifest=$samples/SampleHost.Components.manifest
cp "$manifest" "$work/manifest"
grep -v '"ORVEBCGLView.GLData"' "$work/manifest" >"$manifest"
"${wine[@]}" "$samples/early-bound.exe" 2>/dev/null >"$work/sample"
expect "a missing component fails the program" $? 1
expect "a missing component is named" "$(tail -n 1 "$work/sample" | tr -d '\r')" "failed: ActiveX 部件不能创建对象: ORVEBCGLView.GLData (0x800A01AD)"
cp "$work/manifest" "$manifest"
# A script, with control and components registered; another's component keeps its place.
foreign="HKLM\\Software\\Classes\\ORVConnection.AppConnection\\CLSID"
class_of() { "${wine[@]}" reg query "$1" /ve 2>/dev/null | tr -d '\r' | grep -oE '\{.*\}'; }
"${wine[@]}" reg add "$foreign" /ve /d "{00000000-0000-0000-0000-000000000001}" /f >/dev/null 2>&1
helper register.cmd ""
regsvr32 "Z:$samples/SampleHost.dll"
expect "the sample's components are registered" $? 0
expect "a component of somebody else stays" "$(class_of "$foreign")" "{00000000-0000-0000-0000-000000000001}"
"${wine[@]}" "$system\\cscript.exe" //nologo "Z:$folder/samples/scripts/conditions.vbs" "Z:$work/trace" 2>/dev/null >"$work/sample"
expect "conditions.vbs prints the texts" "$(printed)" "Initialize: -1 RefreshProfile: -1 WHERE:  ( convert(char(10),t_Receipt.FDate,120) BETWEEN  '2024-02-01' AND '2024-02-29'   OR\\r\\n t_Receipt.FStatus= 1 )  ORDER BY: t_Receipt.FDate  ASC ,t_Receipt.FAmount  DESC  columns: 4, the first is t_Receipt.FDate "
expect "conditions.vbs writes its trace" "$(grep -c $'\tFilter\.GetFilterSql\t' "$work/trace")" 1
regsvr32 /u "Z:$samples/SampleHost.dll"
helper unregister.cmd ""
expect "the sample's components are gone" "$(class_of "${foreign/ORVConnection.AppConnection/QDX.Dictionary}")" ""
expect "a component of somebody else stays then, too" "$(class_of "$foreign")" "{00000000-0000-0000-0000-000000000001}"
"${wine[@]}" reg delete "${foreign%\\CLSID}" /f >/dev/null 2>&1
# The fetched 32-bit programs have no display.
if [ "$bits" -eq 64 ]; then
    "$root/scripts/wine-env" --display wine "$samples/dialog-host.exe" --demo 2>/dev/null >"$work/sample"
    expect "dialog-host ends well" $? 0
    expect "dialog-host prints the texts" "$(printed)" "$sql sort: t_Receipt.FDate  ASC  "
fi
