#!/usr/bin/env bash
# Static analysis of what a build directory compiles of src/, formats/, pictures/ and tool/:
#
#   scripts/analyse.sh BUILD_DIRECTORY
#
# Most of the time of clang-tidy goes into the headers that a file includes. So files that are compiled
# alike are put one behind the other into one source, as many as share no name of their own, and what
# is found is told by the file and line where it stands. Should such a source not compile, its files
# are analysed one by one. Ends with a status other than 0 where anything is found.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

build=$(realpath "${1:?usage: scripts/analyse.sh BUILD_DIRECTORY}")
groups=$build/analysis
export build groups

# Lines of command and file for every source that is analysed.
commands() {
    awk -v root="$PWD" '
        /^ *"command": / { sub(/^ *"command": "/, ""); sub(/",$/, ""); command = $0 }
        /^ *"file": / {
            sub(/^ *"file": "/, ""); sub(/",?$/, "")
            path = substr($0, length(root) + 2)
            if (index($0, root "/") == 1 && path ~ /^(src|formats|pictures|tool)\// && !seen[path]++) {
                sub(/ -o .*/, "", command)
                print command "\t" path
            }
        }' "$build/compile_commands.json"
}

# Sources that include the same library stand together, as its headers are then read once.
by_libraries() {
    local command path
    while IFS=$'\t' read -r command path; do
        printf '%s\t%s\t%s\n' "$(grep -o '^#include <[^>]*/[^>]*>' "$path" | sort -r | tr -d '\n' || true)" \
            "$command" "$path"
    done | sort -r | cut -f 2-
}

# Deals the sources out into groups: number, command, file.
deal_out() {
    awk -F '\t' -f scripts/deal_out.awk
}

# Writes each group as one source, where each of its files begins, and how to compile it.
write_groups() {
    awk -F '\t' -v groups="$groups" -v root="$PWD" '
        {
            source = groups "/" $1 ".cpp"
            print root "/" $3 "\t" lines[$1] + 0 > (groups "/" $1 ".files")
            while ((getline line < $3) > 0) {
                print line > source
                ++lines[$1]
            }
            close($3)
            commands[$1] = $2
        }
        END {
            json = groups "/compile_commands.json"
            separator = "["
            for (group in commands) {
                source = groups "/" group ".cpp"
                print separator "\n{ \"directory\": \"" groups "\", \"command\": \"" commands[group] \
                    " -c " source "\", \"file\": \"" source "\" }" > json
                separator = ","
            }
            print "]" > json
        }'
}

# What clang-tidy says of one group, as said of its files.
analyse_group() {
    local source=$1 group=${1%.cpp} status=0
    # One file of a group may well include what another has.
    clang-tidy --quiet --checks=-readability-duplicate-include -p "$groups" "$source" >"$group.log" 2>"$group.errors" || status=$?
    if [ $status -ne 0 ] && grep -q 'clang-diagnostic-error' "$group.log"; then
        status=0
        cut -f 1 "$group.files" | xargs -d '\n' -n 1 clang-tidy --quiet -p "$build" 2>/dev/null || status=1
        return $status
    fi
    awk -F '\t' -v source="$source" '
        FNR == NR { path[++count] = $1; start[count] = $2; next }
        index($0, source ":") == 1 {
            rest = substr($0, length(source) + 2)
            number = rest + 0
            sub(/^[0-9]+/, "", rest)
            for (k = count; start[k] >= number; --k) { }
            $0 = path[k] ":" number - start[k] rest
        }
        { print }' "$group.files" "$group.log"
    if [ $status -ne 0 ] && [ ! -s "$group.log" ]; then
        cat "$group.errors" >&2
    fi
    return $status
}
export -f analyse_group

# What the check of that name finds in a file by itself. Branches of a condition do not see each other.
duplicate_includes() {
    find src formats pictures tool \( -name '*.h' -o -name '*.cpp' \) -print0 | xargs -0 awk '
        FNR == 1 { split("", seen); depth = branch = 0 }
        /^# *(if|el)/ { ++branch }
        /^# *if/ { ++depth }
        /^# *endif/ { --depth }
        /^# *include/ {
            key = (depth ? branch : 0) " " $2
            if (key in seen || ("0 " $2) in seen) {
                print FILENAME ":" FNR ": error: duplicate include [readability-duplicate-include]"
                found = 1
            }
            seen[key]
        }
        END { exit found }'
}

duplicate_includes
rm -rf "$groups"
mkdir -p "$groups"
commands | by_libraries | deal_out | write_groups
# The longest first, so that the ends of the queue are done at the same time.
stat -c '%s %n' "$groups"/*.cpp | sort -rn | cut -d ' ' -f 2- |
    xargs -d '\n' -n 1 -P "$(nproc)" bash -c 'analyse_group "$1"' analyse
