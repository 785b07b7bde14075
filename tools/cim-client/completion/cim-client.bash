# Completion of cim-client for bash. Sourced from ~/.bashrc, or found by bash-completion in
# share/bash-completion/completions/cim-client.

_cim_client() {
  local global="-u --url -H --host -P --port -n --namespace -U --user --password-file
    -W --ask-password -t --timeout -o --output --layout --backend -v --verbose --version -h --help"
  local commands="get-class gc enumerate-classes ec enumerate-class-names ecn
    enumerate-instances ei enumerate-instance-names ein get-instance gi
    create-instance ci modify-instance mi delete-instance di
    associators ai associator-names ain references ri reference-names rin query xq
    invoke cm listen graph doctor"
  local word="${COMP_WORDS[COMP_CWORD]}" previous="${COMP_WORDS[COMP_CWORD - 1]}"
  local options="" command="" index=1
  COMPREPLY=()

  # The value of an option.
  case $previous in
    -o | --output)
      mapfile -t COMPREPLY < <(compgen -W "text json xml" -- "$word")
      return
      ;;
    --layout)
      mapfile -t COMPREPLY < <(compgen -W "auto table blocks" -- "$word")
      return
      ;;
    --backend)
      mapfile -t COMPREPLY < <(compgen -W "xml local" -- "$word")
      return
      ;;
    --password-file | --svg | --png)
      mapfile -t COMPREPLY < <(compgen -f -- "$word")
      return
      ;;
    -H | --host)
      mapfile -t COMPREPLY < <(compgen -A hostname -- "$word")
      return
      ;;
    -u | --url | -P | --port | -n | --namespace | -U | --user | -t | --timeout | -p | \
      --properties | --assoc-class | --result-class | --role | --result-role | --language | \
      --class | --depth | --listen-port | --listen-address | --count)
      return
      ;;
  esac

  # The command is the first word that is neither an option nor the value of one.
  while ((index < COMP_CWORD)); do
    case ${COMP_WORDS[index]} in
      -u | --url | -H | --host | -P | --port | -n | --namespace | -U | --user | \
        --password-file | -t | --timeout | -o | --output | --layout | --backend)
        ((index += 2))
        ;;
      -*) ((index += 1)) ;;
      *)
        command=${COMP_WORDS[index]}
        break
        ;;
    esac
  done

  case $command in
    get-class | gc) options="--local-only --no-qualifiers --class-origin" ;;
    enumerate-classes | ec) options="--deep --local-only --no-qualifiers --class-origin" ;;
    enumerate-class-names | ecn) options="--deep" ;;
    enumerate-instances | ei)
      options="-p --properties --local-only --shallow --qualifiers --class-origin"
      ;;
    get-instance | gi) options="-p --properties --local-only --qualifiers --class-origin" ;;
    modify-instance | mi) options="--partial" ;;
    associators | ai)
      options="--assoc-class --result-class --role --result-role -p --properties --qualifiers
        --class-origin"
      ;;
    associator-names | ain) options="--assoc-class --result-class --role --result-role" ;;
    references | ri)
      options="--result-class --role -p --properties --qualifiers --class-origin"
      ;;
    reference-names | rin) options="--result-class --role" ;;
    query | xq) options="--language -p --properties" ;;
    listen) options="--listen-port --listen-address --count -p --properties" ;;
    graph) options="--depth --svg --png" ;;
    doctor) options="--class" ;;
    "") options=$commands ;;
  esac
  if [[ $word == -* ]]; then
    [[ -z $command ]] && options=""
    mapfile -t COMPREPLY < <(compgen -W "$options $global" -- "$word")
  elif [[ -z $command ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$options" -- "$word")
  fi
}

complete -F _cim_client cim-client
