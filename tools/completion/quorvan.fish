# Completion of quorvan for fish.

set -l commands info list bars check draw diff write

complete -c quorvan -n "not __fish_seen_subcommand_from $commands" -f -l version -d 'Its version'
complete -c quorvan -l help -d 'What it takes, with examples'

complete -c quorvan -n "not __fish_seen_subcommand_from $commands" -f -a info -d 'What files hold, in figures'
complete -c quorvan -n "not __fish_seen_subcommand_from $commands" -f -a list -d 'Every element with its items'
complete -c quorvan -n "not __fish_seen_subcommand_from $commands" -f -a bars -d 'The bar list'
complete -c quorvan -n "not __fish_seen_subcommand_from $commands" -f -a check -d 'What is wrong with files'
complete -c quorvan -n "not __fish_seen_subcommand_from $commands" -f -a draw -d 'The drawing as a picture'
complete -c quorvan -n "not __fish_seen_subcommand_from $commands" -f -a diff -d 'What two drawings differ by'
complete -c quorvan -n "not __fish_seen_subcommand_from $commands" -f -a write -d 'A JSON drawing as a transfer file'

complete -c quorvan -n '__fish_seen_subcommand_from info list bars check diff' -l json -d 'As JSON'
complete -c quorvan -n '__fish_seen_subcommand_from list bars' -l csv -d 'As CSV'
complete -c quorvan -n '__fish_seen_subcommand_from check draw write' -s o -l output -r -d 'File to write'
complete -c quorvan -n '__fish_seen_subcommand_from bars draw' -l unit -x -a 'mm cm m' -d 'Unit of lengths'
complete -c quorvan -n '__fish_seen_subcommand_from check' -l repair -d 'Write a mended copy'
complete -c quorvan -n '__fish_seen_subcommand_from check' -l diameters -x -d 'Standard sizes'
complete -c quorvan -n '__fish_seen_subcommand_from diff' -l tolerance -x -d 'Numbers no further apart are equal'
complete -c quorvan -n '__fish_seen_subcommand_from draw' -l sheet -x -a 'A0 A1 A2 A3 A4 A5 A0u A1u A2u A3u A4u A5u' -d 'Size of the sheet'
complete -c quorvan -n '__fish_seen_subcommand_from draw' -l scale -x -d '25 for 1:25'
complete -c quorvan -n '__fish_seen_subcommand_from draw' -l plane -x -a 'xy xz yz' -d 'What is seen'
complete -c quorvan -n '__fish_seen_subcommand_from draw' -l colors -x -a 'auto index rgb bgr' -d 'What colour numbers are'
complete -c quorvan -n '__fish_seen_subcommand_from draw' -l angles -x -a 'auto deg rad' -d 'What angles are'
complete -c quorvan -n '__fish_seen_subcommand_from draw' -l hidden -x -a 'dashed off solid' -d 'Hidden bars'
complete -c quorvan -n '__fish_seen_subcommand_from draw' -l marks -x -a 'auto all none' -d 'Bar marks'
complete -c quorvan -n '__fish_seen_subcommand_from draw' -l dpi -x -d 'Fineness of a PNG'
