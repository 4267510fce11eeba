# Completes the words of phonesim's command line, which knows them itself.
function __phonesim_words
    set -l current (commandline --current-token --cut-at-cursor)
    set -l words (commandline --tokenize --cut-at-cursor --current-process)
    for line in (command $words[1] --complete $words[2..-1] "$current" 2>/dev/null)
        switch $line
            case ":files"
                __fish_complete_path $current
            case ":directories"
                __fish_complete_directories $current ""
            case "*"
                echo $line
        end
    end
end
complete --command phonesim --no-files --arguments "(__phonesim_words)"
