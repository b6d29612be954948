#!/usr/bin/env bash
# Writes the man page kvlr.1 and the bash completion of kvlr from the tool's own --help
# output, so both follow its commands as they change.
# Usage: scripts/kvlr-docs.sh KVLR VERSION MAN_OUT COMPLETION_OUT
set -euo pipefail
kvlr=$1 version=$2 man_out=$3 completion_out=$4

main_help=$("$kvlr" --help)
commands=$(printf '%s\n' "$main_help" | sed -n '/^Commands:/,/^$/{/^  [a-z]/{s/^  \([a-z-]*\).*/\1/;p}}')

# Text as roff: backslashes escaped, a line that starts with a dot or apostrophe protected.
roff() { sed -e 's/\\/\\e/g' -e "s/^\([.']\)/\\\\\&\1/" -e 's/-/\\-/g'; }

{
  echo ".TH KVLR 1 \"\" \"KVL-R $version\" \"User Commands\""
  echo ".SH NAME"
  echo "kvlr \\- the KVL\\-R command\\-line tool: a swimming family's meets and results"
  echo ".SH SYNOPSIS"
  printf '%s\n' "$main_help" | sed -n 's/^Usage: //p' | roff | sed 's/^/.B /'
  echo ".SH DESCRIPTION"
  echo ".nf"
  printf '%s\n' "$main_help" | sed '1,/^Usage:/d' | sed '/^Commands:/,/^$/d' | roff
  echo ".fi"
  echo ".SH COMMANDS"
  for c in $commands; do
    help=$("$kvlr" "$c" --help)
    echo ".TP"
    printf '%s\n' "$help" | sed -n 's/^Usage: //p' | roff | sed 's/^/.B /'
    printf '%s\n' "$help" | sed '1,/^$/d' | roff
  done
  echo ".SH ENVIRONMENT"
  echo ".TP"
  echo ".B KVLR_HOME"
  echo "The program home when \\-\\-home is not given; else \$XDG_DATA_HOME/kvl\\-r."
  echo ".SH EXIT STATUS"
  echo "0 when done, 1 when the program refuses an input (its own words on standard error),"
  echo "2 on misuse."
} > "$man_out"

{
  echo "# bash completion of kvlr: its commands, and the options of each."
  echo "_kvlr() {"
  echo '  local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD-1]} command="" i'
  echo '  for ((i = 1; i < COMP_CWORD; i++)); do'
  echo '    case ${COMP_WORDS[i]} in'
  echo '      --home) ((i++)) ;;'
  echo '      -*) ;;'
  echo '      *) command=${COMP_WORDS[i]}; break ;;'
  echo '    esac'
  echo '  done'
  echo '  case $prev in'
  echo '    --home|--to) COMPREPLY=($(compgen -d -- "$cur")); return ;;'
  echo '    --db) COMPREPLY=($(compgen -d -- "$cur") $(compgen -f -X "!*.[mM][dD][bB]" -- "$cur")); return ;;'
  echo '  esac'
  echo '  local words'
  echo '  case $command in'
  echo "    \"\") words=\"--home --yes --no --help $(echo $commands)\" ;;"
  for c in $commands; do
    options=$("$kvlr" "$c" --help | sed -n 's/^Usage: //p' | { grep -o -- '--[a-z-]*' || true; } | sort -u | tr '\n' ' ')
    echo "    $c) words=\"${options}--help\" ;;"
  done
  echo '  esac'
  echo '  if [[ $cur == -* || -z $command ]]; then'
  echo '    COMPREPLY=($(compgen -W "$words" -- "$cur"))'
  echo '  else'
  echo '    COMPREPLY=($(compgen -f -- "$cur"))'
  echo '  fi'
  echo "}"
  echo "complete -o filenames -F _kvlr kvlr"
} > "$completion_out"
