# Completion for fish: options, and PAD files to import.
complete -c quillon -f
complete -c quillon -l help -d 'Show all options'
complete -c quillon -l help-all -d 'Show all options, those of the toolkit, too'
complete -c quillon -l version -d 'Show the version'
complete -c quillon -l home -r -a '(__fish_complete_directories)' -d 'Use this folder as the home folder'
complete -c quillon -l new -d 'Ask for the name of a new title'
complete -c quillon -n 'not string match -q -- "-*" (commandline -ct)' -a '(__fish_complete_suffix .xml)'
