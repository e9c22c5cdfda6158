# CHANGELOG.md as a Debian changelog: awk -v package=pellam -v maintainer="Name <address>" -f changelog.awk
# CHANGELOG.md. Takes the releases, "## [1.0.0] - 2026-11-22", and nothing of what is unreleased.

function flush_entry(    words, count, i, line) {
    if (entry == "") return
    gsub(/`/, "", entry)
    count = split(entry, words, " ")
    line = "  *"
    for (i = 1; i <= count; i++) {
        if (length(line) + 1 + length(words[i]) > 78) {
            print line
            line = "   "
        }
        line = line " " words[i]
    }
    print line
    entry = ""
}

function close_release() {
    flush_entry()
    if (version != "") printf "\n -- %s  %s\n\n", maintainer, stamp
    version = ""
}

/^## / {
    close_release()
    if ($2 == "[Unreleased]") next
    version = substr($2, 2, length($2) - 2)
    command = "LC_ALL=C date -u -d " $4 " '+%a, %d %b %Y %H:%M:%S +0000'"
    if ((command | getline stamp) != 1) exit 1
    close(command)
    printf "%s (%s) unstable; urgency=medium\n", package, version
    next
}
version == "" { next }
/^### / { flush_entry(); printf "\n  [ %s ]\n", $2; next }
/^- / { flush_entry(); entry = substr($0, 3); next }
/^  / { entry = entry " " substr($0, 3); next }
END { close_release() }
