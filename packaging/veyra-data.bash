# Bash completion for veyra-data.

_veyra_data_options() {
  case $1 in
    new) echo "--access --sample --shared --schema" ;;
    convert) echo "--to" ;;
    share) echo "--schema --sql --role" ;;
    link) echo "--schema" ;;
    list) echo "--on --week --month --from --to --facility --guest --free --json" ;;
    check) echo "--mend --yes --json" ;;
    history) echo "--facility --on --from --to --guest --since --until --last --full --json" ;;
    undo | restore) echo "--yes" ;;
    journal) echo "--keep" ;;
    export) echo "--facility --from --to --format --replace" ;;
    import) echo "--facility --from --to --format --skip-clashes --dry-run --json" ;;
    backup) echo "--rolling --once" ;;
    rescue) echo "--json" ;;
  esac
}

_veyra_data() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
  local commands="new convert share link compact show list check history undo restore journal"
  commands+=" export import backup restore-backup rescue"
  COMPREPLY=()
  if [ "$COMP_CWORD" -eq 1 ]; then
    mapfile -t COMPREPLY < <(compgen -W "$commands --help --version" -- "$current")
    return
  fi
  case $previous in
    --to)
      if [ "${COMP_WORDS[1]}" = convert ]; then
        mapfile -t COMPREPLY < <(compgen -W "sqlite access" -- "$current")
      fi
      return
      ;;
    --format)
      mapfile -t COMPREPLY < <(compgen -W "ics csv" -- "$current")
      return
      ;;
    --on | --from | --facility | --guest | --free | --since | --until | --last | --keep) return ;;
    --shared | --schema | --role) return ;;
  esac
  if [[ $current == -* ]]; then
    mapfile -t COMPREPLY < <(
      compgen -W "$(_veyra_data_options "${COMP_WORDS[1]}") --help --version" -- "$current")
  elif [ "$COMP_CWORD" -eq 2 ] && [ "$previous" = journal ]; then
    mapfile -t COMPREPLY < <(compgen -W "on off status" -- "$current")
  else
    mapfile -t COMPREPLY < <(compgen -f -- "$current")
  fi
}

complete -o filenames -F _veyra_data veyra-data
