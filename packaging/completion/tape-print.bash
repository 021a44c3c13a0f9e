# Completion of tape-print's options and values for bash.

# Typed text as the shell will read it.
_tape_print_read()
{
    printf '%s' "$1" | sed "s/^['\"]//; s/['\"]\$//; s/\\\\\\(.\\)/\\1/g"
}

# tape-print's list of all printers, or of the one that the command line would print on.
_tape_print_list()
{
    local -a asked=()
    local i word value
    for ((i = 1; i + 1 < ${#words[@]}; ++i)); do
        word=${words[i]}
        case $word in
        --ppd | --printer) value=${words[i + 1]} ;;
        --ppd=* | --printer=*) value=${word#*=} word=${word%%=*} ;;
        *) continue ;;
        esac
        [ "$word$1" = --printerall ] || asked+=("$word" "$(_tape_print_read "$value")")
    done
    # A print server that hangs must not hold the shell.
    LC_ALL=C LANGUAGE='' timeout 3 tape-print --list "${asked[@]}" 2>/dev/null |
        if [ "$1" = all ]; then cat; else sed '/^$/q'; fi
}

_tape_print_printers()
{
    _tape_print_list all | sed -n 's/ (default)$//; /^[^ ]/p'
}

_tape_print_papers()
{
    _tape_print_list one | sed -n '/^    Tapes:$/,/^    [^ ]*: /s/^        \([^:]*\): .*/\1/p' | sort -u
}

# KEYWORD=CHOICE of every option.
_tape_print_settings()
{
    _tape_print_list one | awk -F ': ' '
        /^    [^ ]/ { keyword = substr($1, 5) }
        /^        / && keyword != "Tapes:" { print keyword "=" substr($1, 9) }' | sort -u
}

_tape_print()
{
    # bash makes a word of every equals sign; they are joined again.
    local -a words=()
    local word joins=
    for word in "${COMP_WORDS[@]:0:COMP_CWORD+1}"; do
        if [ -n "$joins" ] || { [ "$word" = = ] && ((${#words[@]} > 1)); }; then
            words[-1]+=$word
        else
            words+=("$word")
        fi
        joins=
        [ "$word" != = ] || joins=yes
    done

    local typed=${words[-1]} option=${words[-2]-} value candidates
    value=$typed
    case $typed in
    --*=*) option=${typed%%=*} value=${typed#*=} ;;
    esac
    COMPREPLY=()
    case $option in
    --printer) candidates=$(_tape_print_printers) ;;
    --paper) candidates=$(_tape_print_papers) ;;
    --set) candidates=$(_tape_print_settings) ;;
    --appearance) candidates=$'auto\nlight\ndark' ;;
    --ppd | --screenshot | --list-controls)
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -f -- "$value")
        return
        ;;
    --output | --plugin)
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -d -- "$value")
        return
        ;;
    --length | --margin | --preset | --copies | --title | --device-uri) return ;;
    *)
        case $typed in
        -*)
            candidates='--printer --paper --length --margin --set --preset --no-memory --copies
                --title --ppd --device-uri --output --plugin --appearance --print --dry-run
                --show-command --list --json --check --print-at-once --show-summary --screenshot
                --list-controls --help --version'
            mapfile -t COMPREPLY < <(compgen -W "$candidates" -- "$typed")
            ;;
        *)
            compopt -o filenames 2>/dev/null
            mapfile -t COMPREPLY < <(compgen -f -- "$typed")
            ;;
        esac
        return
        ;;
    esac

    # What stands before the last equals sign stays on the line as it is.
    local kept= candidate
    local -r beginning=$(_tape_print_read "$value")
    case $beginning in
    *=*) kept=${beginning%=*}= ;;
    esac
    while IFS= read -r candidate; do
        case $candidate in
        '') ;;
        "$beginning"*)
            candidate=${candidate#"$kept"}
            case $value in
            [\'\"]*) ;; # the shell closes the quotes
            *) candidate=$(printf %q "$candidate") ;;
            esac
            COMPREPLY+=("$candidate")
            ;;
        esac
    done <<<"$candidates"
}

complete -F _tape_print tape-print
