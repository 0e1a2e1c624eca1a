# SPDX-License-Identifier: GPL-3.0-or-later
# Completion of morva-cli for bash: commands, their parts, their options, and files for everything else.
_morva_cli() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} path="" words="" word i
    COMPREPLY=()
    case $previous in
    --preset)
        COMPREPLY=($(compgen -W "headshot three-quarter full-length top-down yearbook" -- "$current"))
        compopt -o default; return ;;
    --backdrop) COMPREPLY=($(compgen -W "auto keep repeat" -- "$current")); compopt -o default; return ;;
    --rules) COMPREPLY=($(compgen -W "auto" -- "$current")); compopt -o default; return ;;
    --approve) COMPREPLY=($(compgen -W "ready all" -- "$current")); return ;;
    --jobs | --height | --shard | --pose) return ;;
    --overlay | --data-dir | --cache-dir) compopt -o dirnames; return ;;
    --out | --report | --review-list | --examples | --others) compopt -o default; return ;;
    esac
    for ((i = 1; i < COMP_CWORD; ++i)); do
        word=${COMP_WORDS[i]}
        case $word in
        --data-dir | --cache-dir) ((++i)); continue ;;
        -*) continue ;;
        esac
        case $path in
        "") path=$word ;;
        presets | backdrops | job | poses) path="$path $word"; break ;;
        *) break ;;
        esac
    done
    case $path in
    "") words="crop merge-reports analyze solve presets rules reference review-list backdrops preview job poses --version" ;;
    "crop") words="--out --preset --rules --group --no-group --jobs --approve --force --strict --dry-run --overlay --backdrop --report --review-list --json --shard" ;;
    "merge-reports") words="--help" ;;
    "analyze") words="--jobs --json" ;;
    "solve") words="--preset --rules --group --no-group" ;;
    "presets") words="list show" ;;
    "presets list") words="--json" ;;
    "presets show") words="--help" ;;
    "rules") words="--json" ;;
    "reference") words="--preset --out --json" ;;
    "review-list") words="--preset --rules --group --no-group" ;;
    "backdrops") words="list suggest" ;;
    "backdrops list") words="--json" ;;
    "backdrops suggest") words="--preset --json" ;;
    "preview") words="--out --preset --backdrop --height" ;;
    "job") words="import list crop approve export review-list remove" ;;
    "job import") words="--json --preset" ;;
    "job list") words="--json" ;;
    "job crop") words="--json --force --strict --jobs" ;;
    "job approve") words="--json --ready --take-back" ;;
    "job export") words="--json --out --approved-only --replace" ;;
    "job review-list") words="--json --out" ;;
    "job remove") words="--json" ;;
    "poses") words="list train test add save remove" ;;
    "poses list") words="--json" ;;
    "poses train") words="--examples --others --preset --dry-run --jobs --json" ;;
    "poses test") words="--jobs --json" ;;
    "poses add") words="--help" ;;
    "poses save") words="--pose" ;;
    "poses remove") words="--help" ;;
    esac
    case $path in
    "" | presets | backdrops | job | poses) COMPREPLY=($(compgen -W "$words --data-dir --cache-dir --quiet --verbose --help" -- "$current")) ;;
    *)
        if [[ $current == -* ]]; then
            COMPREPLY=($(compgen -W "$words --data-dir --cache-dir --quiet --verbose --help" -- "$current"))
        else
            compopt -o default
        fi
        ;;
    esac
}
complete -F _morva_cli morva-cli
