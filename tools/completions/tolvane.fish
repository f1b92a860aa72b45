# Completes the commands and options of `tolvane`, which it asks the program itself for.
function __tolvane_command
    for word in (commandline -opc)[2..]
        string match -q -- '-*' $word; or begin
            echo $word
            return 0
        end
    end
    return 1
end
function __tolvane_options
    tolvane (__tolvane_command) --help 2>/dev/null | sed -n 's/^  \(-[^ ]*\).*/\1/p' | tr , '\n'
end
function __tolvane_commands
    tolvane --help 2>/dev/null | sed -n '/^Subcommands:/,$ s/^  \([a-z]*\) .*/\1/p'
end
complete -c tolvane -n 'not __tolvane_command >/dev/null' -f -a '(__tolvane_commands)'
complete -c tolvane -n 'string match -q -- "-*" (commandline -ct)' -f -a '(__tolvane_options)'
