# Completes the commands and options of `tolvane`, which it asks the program itself for.
_tolvane() {
    local program=${COMP_WORDS[0]} current=${COMP_WORDS[COMP_CWORD]} command='' word choices
    for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        if [[ $word != -* ]]; then command=$word && break; fi
    done
    if [[ $current == -* ]]; then
        # shellcheck disable=SC2086
        choices=$("$program" $command --help 2>/dev/null | sed -n 's/^  \(-[^ ]*\).*/\1/p' | tr , ' ')
    elif [[ -z $command ]]; then
        choices=$("$program" --help 2>/dev/null | sed -n '/^Subcommands:/,$ s/^  \([a-z]*\) .*/\1/p')
    else
        return # to the names of files
    fi
    mapfile -t COMPREPLY < <(compgen -W "$choices" -- "$current")
}
complete -o default -F _tolvane tolvane
