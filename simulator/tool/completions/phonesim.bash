# Completes the words of phonesim's command line, which knows them itself.
# shellcheck shell=bash
_phonesim() {
    local current="${COMP_WORDS[COMP_CWORD]}" line
    # "--out=a.png" comes as three words, of which the program wants two.
    local words=()
    for line in "${COMP_WORDS[@]:1:COMP_CWORD}"; do
        [ "$line" = "=" ] || words+=("$line")
    done
    if [ "$current" = "=" ]; then
        current=""
        words+=("")
    fi
    COMPREPLY=()
    while IFS= read -r line; do
        case "$line" in
            :files)
                compopt -o filenames
                mapfile -t COMPREPLY < <(compgen -f -- "$current")
                ;;
            :directories)
                compopt -o filenames
                mapfile -t COMPREPLY < <(compgen -d -- "$current")
                ;;
            *) COMPREPLY+=("${line%%$'\t'*}") ;;
        esac
    done < <("$1" --complete "${words[@]}" 2>/dev/null)
}
complete -F _phonesim phonesim
