# Deals sources out into groups whose files can stand one behind the other in one source: files that
# are compiled alike and share no name of their own.
#
#   awk -F '\t' -f scripts/deal_out.awk [-v most=BYTES]
#
# Reads lines of two fields, what says how a file is compiled and the file; writes each with the number
# of its group before it. A name at the start of a line is the file's own, or a definition of what a
# header declares. No group has more than so many bytes, but for a file that has more by itself.

# The names of a file with what is theirs: of an alias its line, which another file may have too.
function names_of(path, found,   line, name, raw, meaning) {
    raw = 0
    while ((getline line < path) > 0) {
        size += length(line) + 1
        # What is defined or used so is seen by all that comes behind it.
        if (line ~ /^(using enum|# *define)/) { alone = 1 }
        # Lines of a text that goes over several.
        if (raw) {
            raw = line !~ /\)[a-z]*"/
            continue
        }
        raw = match(line, /R"[a-z]*\(/) && substr(line, RSTART + RLENGTH) !~ /\)[a-z]*"/
        if (line !~ /^[A-Za-z]/ || line ~ /^(namespace|template|static_assert|using namespace)/) {
            continue
        }
        meaning = line ~ /^using / ? line : path
        # Of a test the name is that of its suite and its own.
        if (match(line, /^TEST(_[FP])?\([A-Za-z_0-9]+, *[A-Za-z_0-9]+/)) {
            found[substr(line, RSTART, RLENGTH)] = meaning
            continue
        }
        while (gsub(/<[^<>]*>/, "", line)) { }
        if (match(line, /([A-Za-z_0-9]|::)+ *(\(|=|\{|\[|;|:[^:]|: )/)) {
            name = substr(line, RSTART, RLENGTH)
            line = substr(line, RSTART + RLENGTH)
            gsub(/[^A-Za-z_0-9:]/, "", name)
            # Functions that take different records first are told from each other.
            if (match(line, /^(const )?[A-Z][A-Za-z_0-9]*&/)) {
                name = name "(" substr(line, RSTART, RLENGTH)
                sub(/const /, "", name)
            }
            found[name] = meaning
        }
    }
    close(path)
}

BEGIN {
    if (!most) { most = 100000 }
}

{
    split("", own); size = 0; alone = 0
    names_of($2, own)
    if (alone) { size = most }
    for (group = 1; group <= count; ++group) {
        fits = command[group] == $1 && total[group] + size <= most
        for (name in own) {
            if ((group, name) in taken && taken[group, name] != own[name]) { fits = 0 }
        }
        if (fits) { break }
    }
    if (group > count) { command[count = group] = $1 }
    total[group] += size
    for (name in own) { taken[group, name] = own[name] }
    print group "\t" $1 "\t" $2
}
