# bash completion for Kalvenor: one word, or the path of an activity file.

_kalvenor()
{
    local cur prev words cword
    _init_completion || return
    ((cword == 1)) || return 0
    local commands="install uninstall debug initialize startservice stopservice STARTSERVICE"
    mapfile -t COMPREPLY < <(compgen -W "$commands" -- "$cur")
    _filedir kvd
} &&
    complete -F _kalvenor Kalvenor
