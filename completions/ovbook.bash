# Completion of ovbook's command line for bash.

# _ovbook_options COMMAND: the options of a command; of ovbook itself for "".
_ovbook_options() {
  case $1 in
    '') printf '%s\n' -h --help --version ;;
    import) printf '%s\n' -h --help -o --output --from-book --tags --all-messages ;;
    export) printf '%s\n' -h --help -o --output --to-book --dry-run --tags ;;
    books) printf '%s\n' -h --help --tsv ;;
    list) printf '%s\n' -h --help --sort --match --tsv ;;
    show) printf '%s\n' -h --help --tags ;;
    dump) printf '%s\n' -h --help --json ;;
    format) printf '%s\n' -h --help --country --one-line ;;
    *) printf '%s\n' -h --help ;;
  esac
}

# _ovbook_arguments COMMAND POSITION COUNTRY: the words that may be a command's argument, the
# first being 0. Fails where a file may come.
_ovbook_arguments() {
  case $1 in
    '')
      printf '%s\n' import export books list show dump name-order countries country layout format tag
      ;;
    import) return 1 ;;
    export | list | show | dump) [ "$2" -gt 0 ] ;;
    name-order) [ "$2" -gt 0 ] || printf '%s\n' first last ;;
    country | layout) [ "$2" -gt 0 ] || ovbook countries 2>/dev/null | cut -f 1 ;;
    format) [ -z "$3" ] || ovbook layout "$3" 2>/dev/null | sed 's/ + /\n/g' | sed 's/$/=/' ;;
    tag) [ "$2" -ne 1 ] || printf '%s\n' list add remove drop clear set ;;
  esac
}

_ovbook() {
  local current=${COMP_WORDS[COMP_CWORD]} command='' option='' country='' position=0
  local i word words

  for ((i = 1; i < COMP_CWORD; ++i)); do
    word=${COMP_WORDS[i]}
    if [[ -n $option ]]; then
      [[ $word == '=' ]] && continue
      [[ $option == --country ]] && country=$word
      option=''
    elif [[ $word == -o || $word == --output || $word == --tags || $word == --country ||
      $word == --sort || $word == --match ||
      $word == --from-book || $word == --to-book ]]; then
      option=$word
    elif [[ $word == -* ]]; then
      continue
    elif [[ -z $command ]]; then
      command=$word
    else
      ((++position))
    fi
  done

  COMPREPLY=()
  if [[ $current == '=' ]]; then
    [[ $command == format && -z $option ]] && return
    current=''
  fi
  case $option in
    -o | --output)
      compopt -o filenames 2>/dev/null
      mapfile -t COMPREPLY < <(compgen -f -- "$current")
      return
      ;;
    --tags | --match) return ;;
    --sort)
      mapfile -t COMPREPLY < <(compgen -W 'name company none' -- "$current")
      return
      ;;
    --from-book | --to-book)
      mapfile -t COMPREPLY < <(
        compgen -W "$(ovbook books --tsv 2>/dev/null | cut -f 1)" -- "$current"
      )
      return
      ;;
    --country)
      mapfile -t COMPREPLY < <(compgen -W "$(_ovbook_arguments country 0)" -- "$current")
      return
      ;;
  esac
  # What follows the "=" of an address's field is free.
  [[ $command == format && ${COMP_WORDS[COMP_CWORD - 1]} == '=' ]] && return
  if [[ $current == -* ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$(_ovbook_options "$command")" -- "$current")
  elif words=$(_ovbook_arguments "$command" "$position" "$country"); then
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
    [[ $command == format ]] && compopt -o nospace 2>/dev/null
  else
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -f -- "$current")
  fi
}

complete -F _ovbook ovbook
