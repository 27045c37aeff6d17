# Completion for bash: options, and PAD files to import.
_quillon() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
    compopt -o filenames
    if [[ $before == --home ]]; then
        mapfile -t COMPREPLY < <(compgen -d -- "$word")
    elif [[ $word == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W '--help --help-all --home --new --version' -- "$word")
    else
        mapfile -t COMPREPLY < <(compgen -d -- "$word"; compgen -f -X '!*.[xX][mM][lL]' -- "$word")
    fi
}
complete -F _quillon quillon
