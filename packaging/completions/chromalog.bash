# Completions of chromalog for bash.
_chromalog() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} command=${COMP_WORDS[1]}
    local kinds='aco acb ase gpl act jasc riff paintnet hex css json soc'
    local -A options=(
        [convert]='--cmyk-profile --dedupe --from --help --json --list --sort --to'
        [nearest]='--cmyk-profile --from --help -n'
        [pick]='--help --json'
        [recover]='--data-dir --help --list'
        [open]='--about --accept --books --cancel --clipboard --cmyk-profile --color
            --color-services --component-scale --data-dir --drive --fail --format --help --host-version --language
            --option --picks --plugin --screenshot --verbose --version'
    )
    COMPREPLY=()
    case $before in
        --from) mapfile -t COMPREPLY < <(compgen -W "$kinds" -- "$word") ;;
        --to) mapfile -t COMPREPLY < <(compgen -W "$kinds svg" -- "$word") ;;
        --sort) mapfile -t COMPREPLY < <(compgen -W 'name hue lightness' -- "$word") ;;
        --format) mapfile -t COMPREPLY < <(compgen -W 'hex rgb8 rgb16 css json' -- "$word") ;;
        --color-services) mapfile -t COMPREPLY < <(compgen -W 'lcms closed none error' -- "$word") ;;
        --component-scale) mapfile -t COMPREPLY < <(compgen -W '8 16' -- "$word") ;;
        --language) mapfile -t COMPREPLY < <(compgen -W 'en de fr' -- "$word") ;;
        --fail) mapfile -t COMPREPLY < <(compgen -W 'new lock' -- "$word") ;;
        --books | --data-dir) mapfile -t COMPREPLY < <(compgen -d -- "$word") ;;
        --color | --dedupe | --host-version | --picks | -n) return ;;
        *)
            [[ -n ${options[$command]} ]] || command=open
            if [[ $word == -* ]]; then
                mapfile -t COMPREPLY < <(compgen -W "${options[$command]}" -- "$word")
            else
                mapfile -t COMPREPLY < <(compgen -f -- "$word")
                ((COMP_CWORD > 1)) ||
                    mapfile -t -O ${#COMPREPLY[@]} COMPREPLY < <(compgen -W 'convert nearest pick recover' -- "$word")
            fi
            ;;
    esac
}
complete -o filenames -F _chromalog chromalog
