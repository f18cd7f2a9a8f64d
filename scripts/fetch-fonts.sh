#!/usr/bin/env bash
# Puts the built-in fonts of resources/fonts.tsv and their licence texts into build/resources/fonts. Does nothing if
# that was done before and neither the tables nor this script have changed.
set -euo pipefail
cd "$(dirname "$0")/.."

readonly table=resources/fonts.tsv
readonly statements=resources/font-licences.tsv
readonly modules=build/npm
readonly fonts=build/resources/fonts
readonly licences="$fonts/licences"
readonly stamp="$fonts/.stamp"

key=$(cat "$table" "$statements" "$0" | sha256sum | cut -d' ' -f1)
if [[ -f "$stamp" && "$(cat "$stamp")" == "$key" ]]; then
    exit 0
fi

# rows SOURCE: prints the table's lines with this source.
rows() {
    awk -F'\t' -v source="$1" '!/^#/ && $2 == source' "$table"
}

# need PROGRAM-OR-FILE PACKAGES...: if it is missing, installs the packages with apt (only root can).
need() {
    local wanted=$1
    shift
    if command -v "$wanted" >/dev/null || [[ -e "$wanted" ]]; then
        return
    fi
    if [[ $EUID -ne 0 ]]; then
        echo "fetch-fonts: $wanted is missing; install it with: sudo apt-get install $*" >&2
        exit 1
    fi
    apt-get install -y --no-install-recommends "$@" >/dev/null
}

write_package_json() {
    {
        echo '{ "private": true, "dependencies": {'
        rows npm | awk -F'\t' '!seen[$3]++ { printf "%s  \"%s\": \"%s\"", sep, $3, $4; sep = ",\n" }'
        printf '\n} }\n'
    } >"$modules/package.json"
}

# place SOURCE-FILE TARGET-NAME: puts a font file into the folder, as TrueType.
place() {
    local from=$1 target=$2
    if [[ ! -s "$from" ]]; then
        echo "fetch-fonts: $from is missing from its package" >&2
        exit 1
    fi
    if [[ "$from" == *.woff2 ]]; then
        cp "$from" "$fonts/${target%.ttf}.woff2"
        woff2_decompress "$fonts/${target%.ttf}.woff2" >/dev/null
        rm "$fonts/${target%.ttf}.woff2"
    else
        cp "$from" "$fonts/$target"
    fi
}

# keep_licence FOLDER PACKAGE: keeps the package's licence text, if it has one. A text of the font itself is preferred.
keep_licence() {
    local folder=$1 name
    name=$(basename "$2")
    local file
    for file in LICENSE_FONT OFL.txt LICENSE LICENSE.txt copyright; do
        if [[ -f "$folder/$file" ]]; then
            cp "$folder/$file" "$licences/$name.txt"
            return
        fi
    done
}

# text_of LICENCE: prints its text, which one of the packages contains.
text_of() {
    case $1 in
        OFL-1.1)
            sed -n '/^SIL OPEN FONT LICENSE Version 1.1/,$p' "$licences/abel.txt"
            ;;
        Apache-2.0)
            cat "$licences/luckiest-guy.txt"
            ;;
        *)
            echo "fetch-fonts: no text of the licence $1" >&2
            return 1
            ;;
    esac
}

# For packages without a licence text: writes what their fonts state, and the text of the licence that they name.
write_stated_licences() {
    local name licence copyright
    while IFS=$'\t' read -r name licence copyright; do
        {
            printf '%s\n\nLicensed under %s:\n\n' "$copyright" "$licence"
            text_of "$licence"
        } >"$licences/$name.txt"
    done < <(grep -v -e '^#' -e '^package' "$statements")
}

# Adds the licence texts that Debian's copyright files only refer to, because other systems do not have them.
complete_debian_licences() {
    local file text
    for file in "$licences"/fonts-*.txt; do
        if grep -q /usr/share/common-licenses/Apache-2.0 "$file"; then
            text=$(text_of Apache-2.0)
            printf '\n%s\n' "$text" >>"$file"
        fi
    done
}

check_licences() {
    local package
    while read -r package; do
        if [[ ! -s "$licences/$(basename "$package").txt" ]]; then
            echo "fetch-fonts: $package has no licence text; state it in $statements" >&2
            exit 1
        fi
    done < <({ rows npm; rows debian; } | cut -f3)
}

need woff2_decompress woff2
need npm nodejs npm
mkdir -p "$modules" "$fonts" "$licences"
rm -f "$stamp"
write_package_json
npm install --prefix "$modules" --no-audit --no-fund --ignore-scripts --no-package-lock --loglevel=error >&2

while IFS=$'\t' read -r _ _ package _ file target; do
    place "$modules/node_modules/$package/$file" "$target"
    keep_licence "$modules/node_modules/$package" "$package"
done < <(rows npm)

while IFS=$'\t' read -r _ _ package _ file target; do
    need "$file" "$package"
    place "$file" "$target"
    keep_licence "/usr/share/doc/$package" "$package"
done < <(rows debian)

write_stated_licences
complete_debian_licences
check_licences
echo "$key" >"$stamp"
