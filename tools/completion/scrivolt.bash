# Bash completion for scrivolt: switch names, the keywords their options
# take, and file names everywhere else.
_scrivolt() {
  local current=${COMP_WORDS[COMP_CWORD]}
  local previous=${COMP_WORDS[COMP_CWORD-1]}
  local switches="/set /setsubparams /unset /basepath /in /out /inencoding /outencoding
    /commandfileencoding /commandfile /feedbackdest /feedbackmode /go /help --help --version"
  case ${previous,,} in
    /inencoding|/outencoding|/commandfileencoding|--inencoding|--outencoding|--commandfileencoding)
      mapfile -t COMPREPLY < <(compgen -W "auto ascii utf8 utf16 utf16le utf16be" -- "$current")
      return ;;
    /feedbackdest|--feedbackdest)
      mapfile -t COMPREPLY < <(compgen -W "screen file" -- "$current")
      return ;;
    /feedbackmode|--feedbackmode)
      mapfile -t COMPREPLY < <(compgen -W "all error none" -- "$current")
      return ;;
  esac
  if [[ $current == /* && $current != */*/* ]] || [[ $current == -* ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$switches" -- "$current")
    [ ${#COMPREPLY[@]} -gt 0 ] && return
  fi
  mapfile -t COMPREPLY < <(compgen -f -- "$current")
}
complete -o filenames -F _scrivolt scrivolt
