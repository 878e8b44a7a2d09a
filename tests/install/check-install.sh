#!/usr/bin/env bash
# Installs a build into a staging folder and checks that every file is in its
# place and that the desktop's validators accept the launcher and metainfo.
#   check-install.sh BUILD_FOLDER
set -euo pipefail
build=$1
stage=$(mktemp -d)
trap 'rm -rf "$stage"' EXIT
cmake --install "$build" --prefix "$stage/usr" >/dev/null

status=0
for file in \
    bin/vantrelle bin/vantrelle-cli \
    share/applications/org.vantrelle.Vantrelle.desktop \
    share/metainfo/org.vantrelle.Vantrelle.metainfo.xml \
    share/icons/hicolor/scalable/apps/org.vantrelle.Vantrelle.svg \
    share/man/man1/vantrelle.1.gz share/man/man1/vantrelle-cli.1.gz \
    share/bash-completion/completions/vantrelle-cli \
    share/doc/vantrelle/copyright share/doc/vantrelle/changelog.gz; do
  [ -e "$stage/usr/$file" ] || { echo "missing: $file"; status=1; }
done
desktop-file-validate "$stage/usr/share/applications/org.vantrelle.Vantrelle.desktop"
appstreamcli validate --no-net --pedantic "$stage/usr/share/metainfo/org.vantrelle.Vantrelle.metainfo.xml" >/dev/null
for page in vantrelle vantrelle-cli; do
  warnings=$(zcat "$stage/usr/share/man/man1/$page.1.gz" | groff -man -ww -z 2>&1)
  [ -z "$warnings" ] || { echo "$page.1: $warnings"; status=1; }
done
bash -n "$stage/usr/share/bash-completion/completions/vantrelle-cli"
# Every command of the console has its completion and its manual entry.
commands=$("$stage/usr/bin/vantrelle-cli" --help | awk '/^Subcommands:/{f=1;next} f&&/^  [a-z]/{print $1}')
for command in $commands; do
  grep -qwF -- "$command" "$stage/usr/share/bash-completion/completions/vantrelle-cli" ||
    { echo "no completion for $command"; status=1; }
  zcat "$stage/usr/share/man/man1/vantrelle-cli.1.gz" | grep -q -- "^\.BI\? \"\?${command//-/\\\\-}" ||
    { echo "no manual entry for $command"; status=1; }
done
exit $status
