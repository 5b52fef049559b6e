# bash completion for kalvenor-run: options, an activity file, then the names of its activities.

# The elements directly below the root. A name that is not plain ASCII is left out: which bytes stand for it depends on
# the file's encoding. What is left needs no quoting.
_kalvenor_run_names()
{
    head -c 4000000 -- "$1" 2>/dev/null | LC_ALL=C tr '\r\n' '  ' | LC_ALL=C sed 's/>/>\n/g' | LC_ALL=C awk '
        end { if ($0 ~ end) end = ""; next }
        /<!--/ { if ($0 !~ /-->$/) end = "-->$"; next }
        /<!\[CDATA\[/ { if ($0 !~ /\]\]>$/) end = "\\]\\]>$"; next }
        /<\// { depth--; next }
        match($0, /<[^<!?][^<]*>$/) {
            tag = substr($0, RSTART + 1)
            if (depth == 1 && match(tag, /^[A-Za-z_][A-Za-z0-9_.-]*[ \t\/>]/)) print substr(tag, 1, RLENGTH - 1)
            if (tag !~ /\/>$/) depth++
        }'
}

_kalvenor_run()
{
    local cur prev words cword
    _init_completion || return
    local word file='' name
    for word in "${words[@]:1:cword-1}"; do
        if [[ $word != -* ]]; then
            file=$word
            break
        fi
    done
    if [[ $cur == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W '--dry-run --json --new-drive --run --undo --help --version' -- "$cur")
        return
    fi
    if [[ -z $file ]]; then
        _filedir kvd
        return
    fi
    # As typed, so with quotes and escapes. Nothing in it is executed.
    file=${file#[\"\']}
    file=${file%[\"\']}
    file=${file//\\/}
    [[ $file == "~/"* ]] && file=$HOME/${file:2}
    [[ -f $file ]] || return
    while read -r name; do
        [[ $name == "$cur"* ]] && COMPREPLY+=("$name")
    done < <(_kalvenor_run_names "$file" | LC_ALL=C sort -u)
} &&
    complete -F _kalvenor_run kalvenor-run
