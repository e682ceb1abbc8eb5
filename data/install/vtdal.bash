# Completion of vtdal for bash. What can follow is taken from the tool's own help, so that it knows
# every command that the installed tool has.

# What `vtdal [COMMAND] --help` lists: the commands, or the actions and options of one.
_vtdal_commands() { "$1" --help 2>/dev/null | sed -nE 's/^  ([a-z][a-z-]*) .*/\1/p'; }
_vtdal_actions() {
  "$1" "$2" --help 2>/dev/null | sed -nE "s/^(Usage:|      ) vtdal $2 ([a-z|]+) [A-Z].*/\2/p" | tr '|' '\n'
}
_vtdal_options() { "$1" "$2" --help 2>/dev/null | grep -oE -- '--[a-z][a-z-]*' | sort -u; }
# The first column, which may hold single blanks.
_vtdal_printers() { "$1" printers 2>/dev/null | sed -E -e 1d -e 's/ {2,}.*//'; }

_vtdal() {
  local tool=$1 word=${COMP_WORDS[COMP_CWORD]} command=${COMP_WORDS[1]:-} i place=0
  COMPREPLY=()
  if [ "$COMP_CWORD" -eq 1 ]; then
    mapfile -t COMPREPLY < <(compgen -W "$(_vtdal_commands "$tool") --help --version" -- "$word")
    return
  fi
  if [[ $word == -* ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$(_vtdal_options "$tool" "$command") --help" -- "$word")
    return
  fi
  # Which of the command's words this is, the options left out.
  for ((i = 2; i < COMP_CWORD; i++)); do
    [[ ${COMP_WORDS[i]} == -* ]] || place=$((place + 1))
  done
  local actions
  actions=$(_vtdal_actions "$tool" "$command")
  if [ -n "$actions" ]; then
    if [ $place -eq 0 ]; then
      mapfile -t COMPREPLY < <(compgen -W "$actions" -- "$word")
      return
    fi
    place=$((place - 1))
  fi
  case $command in
    dither | stretch | get | set | list | add) return ;;  # no printer's name comes first
  esac
  [ $place -eq 0 ] || return
  local printer unquoted=${word//\\/}
  while IFS= read -r printer; do
    [[ $printer == "$unquoted"* ]] && COMPREPLY+=("$(printf %q "$printer")")
  done < <(_vtdal_printers "$tool")
}

complete -o default -F _vtdal vtdal
