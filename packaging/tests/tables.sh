# The installers' own tables: what they would write is what the control registers, and nothing runs code.

# rows MSI TABLE: the rows of a table, without its three heading lines.
rows() { msiinfo export "$1" "$2" | tr -d '\r' | tail -n +4; }
property() { rows "$1" Property | awk -F'\t' -v name="$2" '$1 == name { print $2 }'; }

# What the control of the bitness under test writes.
"${wine[@]}" "$build/bin/registration_table.exe" "$build/bin/ORVFilter.ocx" 2>/dev/null >"$work/printed"
tr -d '\r' <"$work/printed" >"$work/table"

declare -A upgrade_codes=()
for packed in x64 x86; do
    case $packed in
    x64) platform=x64 folder=$win64 platform_key=win64 ;;
    x86) platform=Intel folder=$win32 platform_key=win32 ;;
    esac
    for scope in machine user; do
        case $scope in
        machine) msi=$packages/ORVFilter-$version-$packed.msi registry_root=2 all_users=1 words=2 ;;
        user) msi=$packages/ORVFilter-$version-$packed-user.msi registry_root=1 all_users="" words=10 ;;
        esac
        name="$packed for the $scope"
        expect "$name: version" "$(property "$msi" ProductVersion)" "$version"
        expect "$name: ALLUSERS" "$(property "$msi" ALLUSERS)" "$all_users"
        expect "$name: platform" "$(msiinfo suminfo "$msi" | sed -n 's/^Template: \([^;]*\);.*/\1/p')" "$platform"
        # 8 says that no administrator is needed.
        expect "$name: asks for rights" "$(msiinfo suminfo "$msi" | sed -n 's/^Source: \([0-9]*\).*/\1/p')" "$words"
        upgrade_codes[$(property "$msi" UpgradeCode)]=$name
        code=$(for table in SelfReg CustomAction; do
            if msiinfo tables "$msi" | grep -qx "$table"; then rows "$msi" "$table"; fi
        done)
        expect "$name: no code runs at installation" "$code" ""

        # The entries as registration_table prints them.
        rows "$msi" Registry | awk -F'\t' -v OFS='\t' -v root="$registry_root" '
            $2 != root { print "root " $2; next }
            { sub(/^Software\\Classes\\/, "", $3); gsub(/\[#ORVFilter\.ocx\]/, "<file>", $5); gsub(/\[INSTALLDIR\]/, "<folder>", $5) }
            $4 == "*" { print $3; next }
            { print $3, $4, $5 }' | sort >"$work/written"
        sed "s/\\\\win\(64\|32\)\t/\\\\$platform_key\t/" "$work/table" | sort >"$work/registered"
        if [ -s "$work/registered" ] && diff "$work/registered" "$work/written"; then
            pass "$name: writes what the control registers"
        else
            fail "$name: writes other entries than the control registers"
        fi
        rm -rf "$work/files"
        mkdir "$work/files"
        msiextract -C "$work/files" "$msi" >/dev/null
        file=$(find "$work/files" -iname 'ORVFilter.ocx' -o -iname 'ORVFLT.OCX' | head -n 1)
        if [ -n "$file" ] && cmp -s "$file" "$folder/bin/ORVFilter.ocx"; then pass "$name: holds the control"; else fail "$name: holds another control"; fi
    done
done
expect "each package upgrades its own kind" "${#upgrade_codes[@]}" 4
