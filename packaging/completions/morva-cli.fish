# SPDX-License-Identifier: GPL-3.0-or-later
# Completion of morva-cli for fish: commands, their parts, their options, and files where files are wanted.

# Whether the words so far are exactly these commands, whatever options stand between them.
function __morva_cli_at
    set -l said
    set -l skip 0
    for word in (commandline -opc)[2..]
        if test $skip = 1
            set skip 0
        else if contains -- $word --data-dir --cache-dir
            set skip 1
        else if not string match -q -- '-*' $word
            set -a said $word
        end
    end
    test (count $said) -ge (count $argv); or return 1
    for i in (seq (count $argv))
        test $said[$i] = $argv[$i]; or return 1
    end
    if contains -- $argv[-1] presets backdrops job poses
        test (count $said) = (count $argv)
    end
end

function __morva_cli_fresh
    not __fish_seen_subcommand_from crop merge-reports analyze solve presets rules reference review-list backdrops preview job poses
end

complete -c morva-cli -l data-dir -xa '(__fish_complete_directories)' -d 'Folder of your own presets'
complete -c morva-cli -l cache-dir -xa '(__fish_complete_directories)' -d 'Folder for what can be made again'
complete -c morva-cli -l quiet -d 'Only failures'
complete -c morva-cli -l verbose -d 'One message a photo'
complete -c morva-cli -s h -l help -d 'Print the options'
complete -c morva-cli -n __morva_cli_fresh -l version -d 'Print the version'
complete -c morva-cli -n __morva_cli_fresh -fa crop -d 'Turn photos into finished crops'
complete -c morva-cli -n __morva_cli_fresh -fa merge-reports -d 'Join the reports of crop --shard into those of the whole run'
complete -c morva-cli -n __morva_cli_fresh -fa analyze -d 'Measure photos without cropping them'
complete -c morva-cli -n __morva_cli_fresh -fa solve -d 'Solve crops from stored measurements, without the photos'
complete -c morva-cli -n __morva_cli_fresh -fa presets -d 'The presets there are'
complete -c morva-cli -n __morva_cli_fresh -fa rules -d 'The rules that choose presets, first match first'
complete -c morva-cli -n __morva_cli_fresh -fa reference -d 'Model a preset on a finished portrait, and print the preset'
complete -c morva-cli -n __morva_cli_fresh -fa review-list -d 'A CSV of the photos that need a look, from stored measurements'
complete -c morva-cli -n __morva_cli_fresh -fa backdrops -d 'The backdrop photographs there are'
complete -c morva-cli -n __morva_cli_fresh -fa preview -d 'A small picture of what a photo’s crop will look like'
complete -c morva-cli -n __morva_cli_fresh -fa job -d 'The jobs of the application'
complete -c morva-cli -n __morva_cli_fresh -fa poses -d 'Teach poses and share them'

# crop
complete -c morva-cli -n '__morva_cli_at crop' -l out -xa '(__fish_complete_directories)' -d 'Folder for the crops'
complete -c morva-cli -n '__morva_cli_at crop' -l preset -xa '(__fish_complete_suffix .json; echo headshot; echo three-quarter; echo full-length; echo top-down; echo yearbook)' -d 'A preset’s name'
complete -c morva-cli -n '__morva_cli_at crop' -l rules -rFa auto -d 'Choose each photo’s preset by rules'
complete -c morva-cli -n '__morva_cli_at crop' -l group -d 'One crop size for the frames of a child taken within seconds'
complete -c morva-cli -n '__morva_cli_at crop' -l no-group -d 'One crop size for the frames of a child taken within seconds'
complete -c morva-cli -n '__morva_cli_at crop' -l jobs -x -d 'Photos worked on at once'
complete -c morva-cli -n '__morva_cli_at crop' -l approve -xa 'ready all' -d 'Crops to write'
complete -c morva-cli -n '__morva_cli_at crop' -l force -d 'Write also crops that lack canvas'
complete -c morva-cli -n '__morva_cli_at crop' -l strict -d 'Exit with 1 when a photo needs a look'
complete -c morva-cli -n '__morva_cli_at crop' -l dry-run -d 'Analyse and solve'
complete -c morva-cli -n '__morva_cli_at crop' -l overlay -xa '(__fish_complete_directories)' -d 'Folder for pictures of the guides'
complete -c morva-cli -n '__morva_cli_at crop' -l backdrop -rFa 'auto keep repeat' -d 'Backdrop of the crops'
complete -c morva-cli -n '__morva_cli_at crop' -l report -rF -d 'File for the report'
complete -c morva-cli -n '__morva_cli_at crop' -l review-list -rF -d 'File for the list of photos that need a look'
complete -c morva-cli -n '__morva_cli_at crop' -l json -d 'One JSON object per photo on standard output'
complete -c morva-cli -n '__morva_cli_at crop' -l shard -x -d 'Only the i-th of n shares of the photos'

# merge-reports

# analyze
complete -c morva-cli -n '__morva_cli_at analyze' -l jobs -x -d 'Photos worked on at once'
complete -c morva-cli -n '__morva_cli_at analyze' -l json -d 'One JSON object per photo on standard output'

# solve
complete -c morva-cli -n '__morva_cli_at solve' -l preset -xa '(__fish_complete_suffix .json; echo headshot; echo three-quarter; echo full-length; echo top-down; echo yearbook)' -d 'A preset’s name'
complete -c morva-cli -n '__morva_cli_at solve' -l rules -rFa auto -d 'Choose each photo’s preset by rules'
complete -c morva-cli -n '__morva_cli_at solve' -l group -d 'One crop size for the frames of a child taken within seconds'
complete -c morva-cli -n '__morva_cli_at solve' -l no-group -d 'One crop size for the frames of a child taken within seconds'

# presets
complete -c morva-cli -n '__morva_cli_at presets' -fa list -d 'All presets, one a line'
complete -c morva-cli -n '__morva_cli_at presets' -fa show -d 'One preset as JSON, the form of preset files'

# presets list
complete -c morva-cli -n '__morva_cli_at presets list' -l json -d 'As one JSON array'
complete -c morva-cli -n '__morva_cli_at presets list' -f

# presets show
complete -c morva-cli -n '__morva_cli_at presets show' -f

# rules
complete -c morva-cli -n '__morva_cli_at rules' -l json -d 'As JSON'

# reference
complete -c morva-cli -n '__morva_cli_at reference' -l preset -xa '(__fish_complete_suffix .json; echo headshot; echo three-quarter; echo full-length; echo top-down; echo yearbook)' -d 'A preset’s name'
complete -c morva-cli -n '__morva_cli_at reference' -l out -rF -d 'File for the preset'
complete -c morva-cli -n '__morva_cli_at reference' -l json -d 'Print what was measured'

# review-list
complete -c morva-cli -n '__morva_cli_at review-list' -l preset -xa '(__fish_complete_suffix .json; echo headshot; echo three-quarter; echo full-length; echo top-down; echo yearbook)' -d 'A preset’s name'
complete -c morva-cli -n '__morva_cli_at review-list' -l rules -rFa auto -d 'Choose each photo’s preset by rules'
complete -c morva-cli -n '__morva_cli_at review-list' -l group -d 'One crop size for the frames of a child taken within seconds'
complete -c morva-cli -n '__morva_cli_at review-list' -l no-group -d 'One crop size for the frames of a child taken within seconds'

# backdrops
complete -c morva-cli -n '__morva_cli_at backdrops' -fa list -d 'All of them, one a line'
complete -c morva-cli -n '__morva_cli_at backdrops' -fa suggest -d 'Those that suit a crop type, best first'

# backdrops list
complete -c morva-cli -n '__morva_cli_at backdrops list' -l json -d 'As one JSON array'
complete -c morva-cli -n '__morva_cli_at backdrops list' -f

# backdrops suggest
complete -c morva-cli -n '__morva_cli_at backdrops suggest' -l preset -xa '(__fish_complete_suffix .json; echo headshot; echo three-quarter; echo full-length; echo top-down; echo yearbook)' -d 'A preset’s name'
complete -c morva-cli -n '__morva_cli_at backdrops suggest' -l json -d 'As one JSON array'
complete -c morva-cli -n '__morva_cli_at backdrops suggest' -f

# preview
complete -c morva-cli -n '__morva_cli_at preview' -l out -rF -d 'File for the picture'
complete -c morva-cli -n '__morva_cli_at preview' -l preset -xa '(__fish_complete_suffix .json; echo headshot; echo three-quarter; echo full-length; echo top-down; echo yearbook)' -d 'A preset’s name'
complete -c morva-cli -n '__morva_cli_at preview' -l backdrop -rFa 'auto keep repeat' -d 'Backdrop of the crops'
complete -c morva-cli -n '__morva_cli_at preview' -l height -x -d 'Height of the picture in pixels'

# job
complete -c morva-cli -n '__morva_cli_at job' -fa import -d 'Make a job of a folder, or look for new photos in its job'
complete -c morva-cli -n '__morva_cli_at job' -fa list -d 'All jobs'
complete -c morva-cli -n '__morva_cli_at job' -fa crop -d 'Measure and crop the photos that need it'
complete -c morva-cli -n '__morva_cli_at job' -fa approve -d 'Approve photos'
complete -c morva-cli -n '__morva_cli_at job' -fa export -d 'Write the finished crops that are not there yet'
complete -c morva-cli -n '__morva_cli_at job' -fa review-list -d 'A CSV of the photos that wait for a look'
complete -c morva-cli -n '__morva_cli_at job' -fa remove -d 'Take a job out of the list; its file is kept'

# job import
complete -c morva-cli -n '__morva_cli_at job import' -l json -d 'One JSON object a line on standard output'
complete -c morva-cli -n '__morva_cli_at job import' -l preset -xa '(__fish_complete_suffix .json; echo headshot; echo three-quarter; echo full-length; echo top-down; echo yearbook)' -d 'The job’s preset'

# job list
complete -c morva-cli -n '__morva_cli_at job list' -l json -d 'One JSON object a line on standard output'
complete -c morva-cli -n '__morva_cli_at job list' -f

# job crop
complete -c morva-cli -n '__morva_cli_at job crop' -l json -d 'One JSON object a line on standard output'
complete -c morva-cli -n '__morva_cli_at job crop' -l force -d 'Measure all photos again'
complete -c morva-cli -n '__morva_cli_at job crop' -l strict -d 'Exit with 1 when a photo needs a look'
complete -c morva-cli -n '__morva_cli_at job crop' -l jobs -x -d 'Photos worked on at once'
complete -c morva-cli -n '__morva_cli_at job crop' -f

# job approve
complete -c morva-cli -n '__morva_cli_at job approve' -l json -d 'One JSON object a line on standard output'
complete -c morva-cli -n '__morva_cli_at job approve' -l ready -d 'All photos that are ready'
complete -c morva-cli -n '__morva_cli_at job approve' -l take-back -d 'Take approvals back instead'

# job export
complete -c morva-cli -n '__morva_cli_at job export' -l json -d 'One JSON object a line on standard output'
complete -c morva-cli -n '__morva_cli_at job export' -l out -xa '(__fish_complete_directories)' -d 'Folder for the crops'
complete -c morva-cli -n '__morva_cli_at job export' -l approved-only -d 'Leave out what nobody approved'
complete -c morva-cli -n '__morva_cli_at job export' -l replace -d 'Write also what is there with the same crop'
complete -c morva-cli -n '__morva_cli_at job export' -f

# job review-list
complete -c morva-cli -n '__morva_cli_at job review-list' -l json -d 'One JSON object a line on standard output'
complete -c morva-cli -n '__morva_cli_at job review-list' -l out -rF -d 'File for the list'
complete -c morva-cli -n '__morva_cli_at job review-list' -f

# job remove
complete -c morva-cli -n '__morva_cli_at job remove' -l json -d 'One JSON object a line on standard output'
complete -c morva-cli -n '__morva_cli_at job remove' -f

# poses
complete -c morva-cli -n '__morva_cli_at poses' -fa list -d 'The poses you have taught'
complete -c morva-cli -n '__morva_cli_at poses' -fa train -d 'Teach a pose from examples'
complete -c morva-cli -n '__morva_cli_at poses' -fa test -d 'Look for the taught poses in photos'
complete -c morva-cli -n '__morva_cli_at poses' -fa add -d 'Add the poses of a pack'
complete -c morva-cli -n '__morva_cli_at poses' -fa save -d 'Save taught poses as a pack'
complete -c morva-cli -n '__morva_cli_at poses' -fa remove -d 'Forget a pose and its rules'

# poses list
complete -c morva-cli -n '__morva_cli_at poses list' -l json -d 'As JSON on standard output'
complete -c morva-cli -n '__morva_cli_at poses list' -f

# poses train
complete -c morva-cli -n '__morva_cli_at poses train' -l examples -rF -d 'Photos of the pose'
complete -c morva-cli -n '__morva_cli_at poses train' -l others -rF -d 'Photos to compare with'
complete -c morva-cli -n '__morva_cli_at poses train' -l preset -xa '(__fish_complete_suffix .json; echo headshot; echo three-quarter; echo full-length; echo top-down; echo yearbook)' -d 'Make a rule that gives this preset to the pose'
complete -c morva-cli -n '__morva_cli_at poses train' -l dry-run -d 'Say how well it is learned'
complete -c morva-cli -n '__morva_cli_at poses train' -l jobs -x -d 'Photos worked on at once'
complete -c morva-cli -n '__morva_cli_at poses train' -l json -d 'As JSON on standard output'
complete -c morva-cli -n '__morva_cli_at poses train' -f

# poses test
complete -c morva-cli -n '__morva_cli_at poses test' -l jobs -x -d 'Photos worked on at once'
complete -c morva-cli -n '__morva_cli_at poses test' -l json -d 'As JSON on standard output'

# poses add

# poses save
complete -c morva-cli -n '__morva_cli_at poses save' -l pose -x -d 'Only this pose'

# poses remove
complete -c morva-cli -n '__morva_cli_at poses remove' -f
