# Completion for bash. quillon-cli knows itself what can stand where.
_quillon_cli() {
    mapfile -d '' -t COMPREPLY < <("$1" complete --bash "$COMP_WORDBREAKS" -- "${COMP_LINE:0:COMP_POINT}" 2>/dev/null)
    wait "$!"
    (($? == 1)) && compopt -o default
    [[ ${#COMPREPLY[@]} == 1 && ${COMPREPLY[0]} == *= ]] && compopt -o nospace
    return 0
}
complete -F _quillon_cli quillon-cli
