# Completion of the command plexorn for bash.
_plexorn_drawings()
{
    mapfile -t COMPREPLY < <(compgen -d -- "$1"; compgen -f -X '!*.[dD][xX][fF]' -- "$1")
}
_plexorn()
{
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} i
    for ((i = 1; i < COMP_CWORD; ++i)); do
        if [[ ${COMP_WORDS[i]} == -- ]]; then
            _plexorn_drawings "$current"
            return
        fi
    done
    if [[ $current == = ]]; then
        current=
    elif [[ $previous == = ]]; then
        previous=${COMP_WORDS[COMP_CWORD - 2]}
    fi
    local options='-o --output --no-clobber --newer-only --force -j --jobs --files-from -0 --null -r --recursive --units --scale --true-size --fit --as-is --layers --layer --not-layer --tolerance --no-wrap --encoding --redraw-dimensions --fill --layout --list-layouts --layers-as --background --paper --hairline -q --quiet --verbose --messages --max-messages --strict --min-drawn --keep-going -h --help --version'
    if [[ $COMP_CWORD -gt 1 && ${COMP_WORDS[1]} == info ]]; then
        options='--json --texts --as-is --summary --files-from -0 --null -r --recursive -h --help'
    fi
    if [[ $COMP_CWORD -gt 1 && ${COMP_WORDS[1]} == prepare ]]; then
        options='-o --output --for --no-clobber --newer-only --force -j --jobs --files-from -0 --null -r --recursive --layers --layer --not-layer --paper --tolerance --no-wrap --encoding --redraw-dimensions --fill --layout -q --quiet --verbose --messages --max-messages --strict --min-drawn -h --help'
    fi
    case $previous in
        -o | --output)
            mapfile -t COMPREPLY < <(compgen -f -- "$current")
            return
            ;;
        -j | --jobs)
            return
            ;;
        --files-from)
            mapfile -t COMPREPLY < <(compgen -f -- "$current")
            return
            ;;
        --units)
            mapfile -t COMPREPLY < <(compgen -W 'header guess none in ft mi mm cm m km uin mil yd angstrom nm um dm dam hm Gm au ly pc usft usin usyd usmi' -- "$current")
            return
            ;;
        --scale)
            mapfile -t COMPREPLY < <(compgen -W '1:1 1:2 1:5 1:10 1:20 1:25 1:50 1:100' -- "$current")
            return
            ;;
        --fit)
            mapfile -t COMPREPLY < <(compgen -W 'all most' -- "$current")
            return
            ;;
        --layers)
            mapfile -t COMPREPLY < <(compgen -W 'shown all' -- "$current")
            return
            ;;
        --layer)
            return
            ;;
        --not-layer)
            return
            ;;
        --tolerance)
            return
            ;;
        --encoding)
            mapfile -t COMPREPLY < <(compgen -W 'UTF-8 ANSI_1250 ANSI_1251 ANSI_1252 ANSI_1253 ANSI_1254 BIG5 GB2312 KSC5601 SHIFT_JIS' -- "$current")
            return
            ;;
        --fill)
            mapfile -t COMPREPLY < <(compgen -W 'filled outline' -- "$current")
            return
            ;;
        --layout)
            mapfile -t COMPREPLY < <(compgen -W 'all' -- "$current")
            return
            ;;
        --layers-as)
            mapfile -t COMPREPLY < <(compgen -W 'groups inkscape' -- "$current")
            return
            ;;
        --background)
            mapfile -t COMPREPLY < <(compgen -W 'none white black #1e1e1e' -- "$current")
            return
            ;;
        --messages)
            mapfile -t COMPREPLY < <(compgen -W 'text json' -- "$current")
            return
            ;;
        --max-messages)
            return
            ;;
        --min-drawn)
            mapfile -t COMPREPLY < <(compgen -W '100% 99% 95% 90% 50%' -- "$current")
            return
            ;;
        --for)
            mapfile -t COMPREPLY < <(compgen -W 'module standard' -- "$current")
            return
            ;;
    esac
    if [[ $current == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$current")
        return
    fi
    _plexorn_drawings "$current"
    if [[ $COMP_CWORD == 1 ]]; then
        mapfile -t -O "${#COMPREPLY[@]}" COMPREPLY < <(compgen -W 'info prepare' -- "$current")
    fi
}
complete -o filenames -F _plexorn plexorn
