#!/usr/bin/env bash
# installed_test.sh BUILD FOLDER: installs the program of BUILD under FOLDER and has man and
# the shells read what came with it, from where they look. A shell that is not on this system is left
# out.
set -euo pipefail

build=$1
prefix=$2/prefix
rm -rf "$2"
mkdir -p "$2"
cmake --install "$build" --component tool --prefix "$prefix" >/dev/null
cd "$2"
touch beam.xml 'plan of roof.xml'
mkdir drawings

failed=0
# expect WHAT FOUND EXPECTED
expect() {
  if [[ $2 != "$3" ]]; then
    printf '%s:\n  found    %s\n  expected %s\n' "$1" "$2" "$3" >&2
    failed=1
  fi
}

commands='info list bars check draw diff write'
# The classes that the program itself names to who asks for another.
classes=$("$prefix/bin/quorvan" list beam.xml nothing 2>&1 | sed -n 's/.*; there are //p' | tr -d ',') || true

# Every command of the program's own help is offered.
listed=$("$prefix/bin/quorvan" --help | sed -n '/^Subcommands:/,/^$/s/^  \([a-z]*\) .*/\1/p' | xargs)
expect 'commands of --help' "$listed" "$commands"

# Every option of a command's own help is offered.
options_of_bars=$("$prefix/bin/quorvan" bars --help | sed -nE 's/^  (-[a-z],)?(--[a-z-]+).*/\2/p')

# What bash offers for the words given, the last of which is being typed, in one line.
in_bash() {
  bash --norc -c '
    source "$1"
    shift
    [[ $(complete -p quorvan) == "complete -F _quorvan quorvan" ]] || exit 1
    COMP_WORDS=(quorvan "$@")
    COMP_CWORD=$#
    _quorvan
    IFS="|"
    echo "${COMPREPLY[*]}"' bash "$prefix/share/bash-completion/completions/quorvan" "$@"
}
expect 'bash, command' "$(in_bash '')" "${commands// /|}"
expect 'bash, part of a command' "$(in_bash d)" 'draw|diff'
expect 'bash, options of the program' "$(in_bash --)" '--help|--version'
expect 'bash, options of a command' "$(in_bash bars beam.xml --)" "${options_of_bars//$'\n'/|}"
expect 'bash, file' "$(in_bash info b)" 'beam.xml'
expect 'bash, file with blanks' "$(in_bash info beam.xml pl)" 'plan of roof.xml'
expect 'bash, class' "$(in_bash list beam.xml '')" "${classes// /|}"
expect 'bash, class behind options' "$(in_bash list --json beam.xml Str)" 'StraightBar'
expect 'bash, nothing behind the last' "$(in_bash list beam.xml LBar '')" ''
expect 'bash, value' "$(in_bash draw beam.xml --plane '')" 'xy|xz|yz'
expect 'bash, value behind =' "$(in_bash draw beam.xml --sheet = A4)" 'A4|A4u'
expect 'bash, empty value behind =' "$(in_bash bars --unit =)" 'mm|cm|m'
expect 'bash, a value is no argument' "$(in_bash bars --unit cm b)" 'beam.xml'
expect 'bash, number' "$(in_bash draw beam.xml --scale '')" ''
expect 'bash, file to write' "$(in_bash draw beam.xml -o dra)" 'drawings'

if command -v fish >/dev/null; then
  # What fish offers for a line, without the descriptions.
  in_fish() {
    XDG_DATA_DIRS=$prefix/share HOME=$PWD PATH=$prefix/bin:$PATH fish -c "complete -C '$1'" | cut -f1 | sort | xargs
  }
  expect 'fish, command' "$(in_fish 'quorvan d')" 'diff draw'
  expect 'fish, options' "$(in_fish 'quorvan bars beam.xml --')" "$(sort <<<"$options_of_bars" | paste -sd ' ')"
  expect 'fish, value' "$(in_fish 'quorvan draw beam.xml --plane ')" 'xy xz yz'
  expect 'fish, class' "$(in_fish 'quorvan list beam.xml Str')" 'StraightBar'
  expect 'fish, file' "$(in_fish 'quorvan info b')" 'beam.xml'
fi

if command -v zsh >/dev/null; then
  zsh -n "$prefix/share/zsh/site-functions/_quorvan" || failed=1
  # The function is bound to the program, and hands each command's arguments to the shell.
  bound=$(zsh -fc 'fpath=($1 $fpath)
    autoload -Uz compinit && compinit -u -D && print $_comps[quorvan]' \
    zsh "$prefix/share/zsh/site-functions")
  expect 'zsh, function' "$bound" _quorvan
  offered=$(zsh -fc '_arguments() {
      if [[ $1 == -C ]]; then state=argument; words=(list); else print -l -- "$@"; fi
    }
    source $1' zsh "$prefix/share/zsh/site-functions/_quorvan" | grep CLASS: | tail -n 1)
  expect 'zsh, class' "$offered" "2::CLASS:($classes)"
fi

if command -v man >/dev/null; then
  page=$prefix/share/man/man1/quorvan.1
  expect 'man, path' "$(MANPATH=$prefix/share/man man -w quorvan)" "$page"
  expect 'man, warnings' "$(LC_ALL=C.UTF-8 man --warnings -l "$page" 2>&1 >page.txt)" ''
  for command in $commands; do
    grep -q "^   $command\$" page.txt || expect 'man, command' '' "$command"
  done
fi
exit "$failed"
