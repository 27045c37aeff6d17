# Completion for fish. quillon-cli knows itself what can stand where.
function __quillon_cli
    set -l words (commandline -opc) (commandline -ct | string unescape)
    quillon-cli complete -- $words[2..-1] 2>/dev/null
end
function __quillon_cli_takes_files
    __quillon_cli >/dev/null
    test $status = 1
end
complete -c quillon-cli -f -a '(__quillon_cli | string split0)'
complete -c quillon-cli -n __quillon_cli_takes_files -F
