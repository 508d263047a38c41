# SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
# SPDX-License-Identifier: GPL-3.0-or-later

# bash completion for stakko-theme. Commands and options come from its --help and field keys
# from its fields command, so the completion never lists what the program no longer knows.
# The help is read in English, whatever language the person speaks: its headings are parsed.

# The commands, as the Commands: section of --help starts each of its entries.
_stakko_theme_commands()
{
    "$1" --lang en --help 2>/dev/null | sed -n '/^Commands:/,/^$/s/^  \([a-z][a-z]*\).*/\1/p'
}

# Every option --help mentions: -x or --word after a blank or an opening bracket.
_stakko_theme_options()
{
    "$1" --lang en --help 2>/dev/null | grep -oE '(^|[[ (])--?[a-z][a-z-]*' | sed 's/^[[ (]//' | sort -u
}

_stakko_theme()
{
    local program=$1 cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD-1]}
    local IFS=$'\n'
    COMPREPLY=()
    case $prev in
        -s | --set-file)
            COMPREPLY=($(compgen -W "$("$program" fields 2>/dev/null)" -S = -- "$cur"))
            compopt -o nospace
            return
            ;;
        --from | --root)
            COMPREPLY=($(compgen -d -- "$cur"))
            return
            ;;
        --fit)
            COMPREPLY=($(compgen -W $'fill\nfit\nstretch\npixel' -- "$cur"))
            return
            ;;
        --format)
            COMPREPLY=($(compgen -W $'bmp\njpg' -- "$cur"))
            return
            ;;
        --lang)
            COMPREPLY=($(compgen -W $'de\nen' -- "$cur"))
            return
            ;;
        -o | --password | --max-unpacked-bytes | --background | --quality | --sheet | --name | --size)
            return # a file name, or nothing to offer
            ;;
    esac
    if [[ $cur == -* ]]; then
        COMPREPLY=($(compgen -W "$(_stakko_theme_options "$program")" -- "$cur"))
        return
    fi
    # import THEME KEY: the key of a field
    if [[ ${COMP_WORDS[1]} == import && $COMP_CWORD -eq 3 ]]; then
        COMPREPLY=($(compgen -W "$("$program" fields 2>/dev/null)" -- "$cur"))
        return
    fi
    local commands word
    commands=$(_stakko_theme_commands "$program")
    for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        [[ $'\n'$commands$'\n' == *$'\n'$word$'\n'* ]] && return # files from here on
    done
    COMPREPLY=($(compgen -W "$commands" -- "$cur"))
}
complete -o default -F _stakko_theme stakko-theme
