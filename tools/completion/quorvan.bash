# Completion of quorvan for bash.

_quorvan() {
  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
  local command='' options='' i
  local commands='info list bars check draw diff write'
  COMPREPLY=()
  for ((i = 1; i < COMP_CWORD; i++)); do
    case ${COMP_WORDS[i]} in
      info | list | bars | check | draw | diff | write)
        command=${COMP_WORDS[i]}
        break
        ;;
    esac
  done
  case $before in
    --unit) options='mm cm m' ;;
    --sheet) options='A0 A1 A2 A3 A4 A5 A0u A1u A2u A3u A4u A5u' ;;
    --plane) options='xy xz yz' ;;
    --colors) options='auto index rgb bgr' ;;
    --angles) options='auto deg rad' ;;
    --hidden) options='dashed off solid' ;;
    --marks) options='auto all none' ;;
    --scale | --dpi | --tolerance | --diameters) return ;;
  esac
  if [[ -n $options ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$options" -- "$word")
    return
  fi
  if [[ $word == -* ]]; then
    case $command in
      info) options='--json' ;;
      list) options='--json --csv' ;;
      bars) options='--json --csv --unit' ;;
      check) options='--json --repair --output --diameters' ;;
      draw)
        options='--output --sheet --scale --unit --plane --colors --angles --hidden --marks --dpi'
        ;;
      diff) options='--json --tolerance' ;;
      write) options='--output' ;;
      *) options='--version' ;;
    esac
    mapfile -t COMPREPLY < <(compgen -W "$options --help" -- "$word")
  elif [[ -z $command ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$commands" -- "$word")
  else
    mapfile -t COMPREPLY < <(compgen -f -- "$word")
    compopt -o filenames 2>/dev/null
  fi
}

complete -F _quorvan quorvan
