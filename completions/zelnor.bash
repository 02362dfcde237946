# bash completion for zelnor(1).

# The names of the logs in the program's folder, where the settings have left them.
_zelnor_logs() {
  local folder=${1:-${ZELNOR_HOME:-${XDG_DATA_HOME:-$HOME/.local/share}/zelnor}} log
  for log in "$folder"/xml/logs/*.xml; do
    if [[ -f $log ]]; then
      log=${log##*/}
      printf '%s\n' "${log%.xml}"
    fi
  done
}

# Offers the files, or with -d the folders, that begin like the word at the cursor.
_zelnor_files() {
  compopt -o filenames 2>/dev/null
  mapfile -t -O "${#COMPREPLY[@]}" COMPREPLY < <(compgen "$1" -- "$cur")
}

# The words after an option that takes a value. Returns 1 for an option that takes none.
_zelnor_value() {
  local command=$1 option=$2 list=
  case $option in
    --home | --record) _zelnor_files -d ;;
    --password-file | --save-copy | --save-another-copy | --scenario | --tls | -o | --out) _zelnor_files -f ;;
    --format)
      case $command in
        validate) list="text json csv junit" ;;
        report) list="html text json" ;;
      esac
      ;;
    --sort) list="employee field severity" ;;
    --gateway) list="local hmrc" ;;
    --mode) list="Live Test FileOnly DevLive DevTest DevFileLive DevFileTest" ;;
    --class) list="HMRC-PAYE-RTI-FPS HMRC-PAYE-RTI-EPS HMRC-PAYE-RTI-EAS HMRC-PAYE-RTI-EYU HMRC-PAYE-RTI-NVR" ;;
    --stages)
      # A list with commas: what stands before the last comma stays.
      local before= stage
      if [[ $cur == *,* ]]; then before=${cur%,*},; fi
      for stage in envelope company employees payment schema; do list+=" $before$stage"; done
      compopt -o nospace 2>/dev/null
      ;;
    --today | --max-errors | --submission-url | --poll-url | --user | --correlation-id | --port | --interval | \
      --provisional | --older-than | --server) ;;
    *) return 1 ;;
  esac
  if [[ -n $list ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$list" -- "$cur")
  fi
  return 0
}

_zelnor() {
  local cur=${COMP_WORDS[COMP_CWORD]} prev= before= command= subcommand= home= count=0 i word
  COMPREPLY=()
  if ((COMP_CWORD > 0)); then prev=${COMP_WORDS[COMP_CWORD - 1]}; fi
  if ((COMP_CWORD > 1)); then before=${COMP_WORDS[COMP_CWORD - 2]}; fi
  # bash takes "--option=value" apart.
  if [[ $cur == = ]]; then
    cur=
  elif [[ $prev == = ]]; then
    prev=$before
  fi

  # What stands before the cursor: the command, the subcommand, and how many arguments.
  for ((i = 1; i < COMP_CWORD; i++)); do
    word=${COMP_WORDS[i]}
    case $word in
      --home)
        if [[ ${COMP_WORDS[i + 1]} == = ]]; then ((i++)); fi
        home=${COMP_WORDS[++i]}
        ;;
      --tls) ((i += 2)) ;;
      --json | --version | --help | -h | --no-validation | --compress | --plain | --no-connection-test | --wait | \
        --dry-run) ;;
      -*)
        if [[ ${COMP_WORDS[i + 1]} == = ]]; then ((i++)); fi
        ((i++))
        ;;
      *)
        if [[ -z $command ]]; then
          command=$word
        elif [[ $command == log && -z $subcommand ]]; then
          subcommand=$word
        else
          ((count++))
        fi
        ;;
    esac
  done

  if [[ $before == --tls ]]; then prev=--tls; fi
  if _zelnor_value "$command" "$prev"; then return; fi

  local gateway="--gateway --submission-url --poll-url --mode --user --password-file --no-connection-test"
  local options="--home --json --help -h" arguments= files=
  case $command in
    "")
      options+=" --version"
      arguments="show irmark save new validate send poll gateway report log support"
      ;;
    show | irmark) ((count < 1)) && files=yes ;;
    save)
      options+=" --no-validation --today --compress --plain"
      ((count < 2)) && files=yes
      ;;
    new)
      options+=" --out -o"
      ((count < 1)) && arguments="fps eps eas eyu nvr"
      ;;
    validate)
      options+=" --today --max-errors --stages --format --compress --plain"
      ((count < 1)) && files=yes
      ;;
    send)
      options+=" $gateway --save-copy --save-another-copy --no-validation --today --compress --plain"
      ((count < 1)) && files=yes
      ;;
    poll) options+=" $gateway --class --correlation-id --wait" ;;
    gateway)
      options+=" --port --tls --scenario --record --user --password-file --interval --provisional"
      ;;
    report)
      options+=" --out -o --format --sort"
      if ((count < 1)); then
        files=yes
        arguments=$(_zelnor_logs "$home")
      fi
      ;;
    log)
      case $subcommand in
        "") arguments="list show open prune" ;;
        show | open)
          if ((count < 1)); then
            files=yes
            arguments=$(_zelnor_logs "$home")
          fi
          ;;
        prune) options+=" --older-than --dry-run" ;;
      esac
      ;;
    support)
      options+=" --server --user --password-file --allow-clear"
      ((count < 1)) && files=yes
      ;;
  esac

  if [[ $cur == -* ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$options" -- "$cur")
    return
  fi
  mapfile -t COMPREPLY < <(compgen -W "$arguments" -- "$cur")
  if [[ -n $files ]]; then _zelnor_files -f; fi
}

complete -F _zelnor zelnor
