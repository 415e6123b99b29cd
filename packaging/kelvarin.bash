# Completion for kelvarin: commands, and the options and choices that the program itself tells.

_kelvarin() {
  local current=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} help
  COMPREPLY=()
  if ((COMP_CWORD == 1)); then
    help=$("${COMP_WORDS[0]}" --help 2>/dev/null | sed -n '/^Subcommands:/,/^$/s/^  \([a-z]\+\) .*/\1/p')
    mapfile -t COMPREPLY < <(compgen -W "$help --help --version" -- "$current")
    return
  fi
  help=$("${COMP_WORDS[0]}" "${COMP_WORDS[1]}" --help 2>/dev/null) || return
  case $before in
    --search) mapfile -t COMPREPLY < <(compgen -W "quoted capitals" -- "$current") ;;
    --what) mapfile -t COMPREPLY < <(compgen -W "all definitions" -- "$current") ;;
    --pages) mapfile -t COMPREPLY < <(compgen -W "auto file layout libreoffice" -- "$current") ;;
    --at) mapfile -t COMPREPLY < <(compgen -W "end start bookmark: after: char:" -- "$current") ;;
    --columns) mapfile -t COMPREPLY < <(compgen -W "1 2 3 4" -- "$current") ;;
    --out-dir | --base) mapfile -t COMPREPLY < <(compgen -d -- "$current") ;;
    *)
      if [[ $current == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$(grep -oE '(^| |,)--?[a-z][a-z-]*' <<< "$help" | tr -d ' ,')" -- "$current")
      elif [[ $current == @* ]]; then
        mapfile -t COMPREPLY < <(compgen -f -P @ -- "${current#@}")
      elif ((COMP_CWORD == 2)) && [[ ${COMP_WORDS[1]} == run ]]; then
        mapfile -t COMPREPLY < <(compgen -W "index remove unhighlight update" -- "$current")
      else
        mapfile -t COMPREPLY < <(compgen -d -- "$current"; compgen -f -X '!*.[dD][oO][ctCT][xmXM]' -- "$current")
      fi
      ;;
  esac
}

complete -o filenames -F _kelvarin kelvarin
