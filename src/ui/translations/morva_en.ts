<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>PhotoReport</name>
    <message numerus="yes">
        <source>%n star(s)</source>
        <translation>
            <numerusform>%n star</numerusform>
            <numerusform>%n stars</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n not cropped yet</source>
        <translation>
            <numerusform>%n not cropped yet</numerusform>
            <numerusform>%n not cropped yet</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n ready</source>
        <translation>
            <numerusform>%n ready</numerusform>
            <numerusform>%n ready</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n in review</source>
        <translation>
            <numerusform>%n in review</numerusform>
            <numerusform>%n in review</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n approved</source>
        <translation>
            <numerusform>%n approved</numerusform>
            <numerusform>%n approved</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n without a face</source>
        <translation>
            <numerusform>%n without a face</numerusform>
            <numerusform>%n without a face</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n unreadable</source>
        <translation>
            <numerusform>%n unreadable</numerusform>
            <numerusform>%n unreadable</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n photos selected</source>
        <translation>
            <numerusform>%n photos selected</numerusform>
            <numerusform>%n photos selected</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n photos</source>
        <translation>
            <numerusform>%1 of %n photos</numerusform>
            <numerusform>%1 of %n photos</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ReasonWords</name>
    <message numerus="yes">
        <source>%n other face(s) could be meant as well; the crop follows the largest.</source>
        <translation>
            <numerusform>%n other face could be meant as well; the crop follows the largest.</numerusform>
            <numerusform>%n other faces could be meant as well; the crop follows the largest.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>morva::ExportSheet</name>
    <message numerus="yes">
        <source>Export %n File(s)</source>
        <translation>
            <numerusform>Export %n File</numerusform>
            <numerusform>Export %n Files</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>file(s) to write</source>
        <translation>
            <numerusform>file to write</numerusform>
            <numerusform>files to write</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Not cropped yet and left out: %n photo(s)</source>
        <translation>
            <numerusform>Not cropped yet and left out: %n photo</numerusform>
            <numerusform>Not cropped yet and left out: %n photos</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Leaves out %n photo(s) ready but not approved</source>
        <translation>
            <numerusform>Leaves out %n photo ready but not approved</numerusform>
            <numerusform>Leaves out %n photos ready but not approved</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Writes %n unchanged photo(s) again</source>
        <translation>
            <numerusform>Writes %n unchanged photo again</numerusform>
            <numerusform>Writes %n unchanged photos again</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>morva::FilterBar</name>
    <message numerus="yes">
        <source>%1: %n photo(s)</source>
        <translation>
            <numerusform>%1: %n photo</numerusform>
            <numerusform>%1: %n photos</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>morva::Inspector</name>
    <message numerus="yes">
        <source>%1 of %n photo(s)</source>
        <translation>
            <numerusform>%1 of %n photo</numerusform>
            <numerusform>%1 of %n photos</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>morva::JobList</name>
    <message numerus="yes">
        <source>%n photo(s)</source>
        <translation>
            <numerusform>%n photo</numerusform>
            <numerusform>%n photos</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n cropped</source>
        <translation>
            <numerusform>%1 of %n cropped</numerusform>
            <numerusform>%1 of %n cropped</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n not cropped</source>
        <translation>
            <numerusform>%n not cropped</numerusform>
            <numerusform>%n not cropped</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n to review</source>
        <translation>
            <numerusform>%n to review</numerusform>
            <numerusform>%n to review</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n ready</source>
        <translation>
            <numerusform>%n ready</numerusform>
            <numerusform>%n ready</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>morva::MainToolbar</name>
    <message numerus="yes">
        <source>%n photo(s) to review</source>
        <translation>
            <numerusform>%n photo to review</numerusform>
            <numerusform>%n photos to review</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>morva::PhotoPage</name>
    <message numerus="yes">
        <source>%1 of %n photos</source>
        <translation>
            <numerusform>%1 of %n photos</numerusform>
            <numerusform>%1 of %n photos</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Mixed (%n crop types)</source>
        <translation>
            <numerusform>Mixed (%n crop types)</numerusform>
            <numerusform>Mixed (%n crop types)</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Approve %n Photo(s)</source>
        <translation>
            <numerusform>Approve %n Photo</numerusform>
            <numerusform>Approve %n Photos</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>morva::PoseSheet</name>
    <message numerus="yes">
        <source>%1 ticked against %n other(s)</source>
        <translation>
            <numerusform>%1 ticked against %n other</numerusform>
            <numerusform>%1 ticked against %n others</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>morva::PresetForm</name>
    <message numerus="yes">
        <source>%n star(s)</source>
        <translation>
            <numerusform>%n star</numerusform>
            <numerusform>%n stars</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>morva::PresetPage</name>
    <message numerus="yes">
        <source>Used by %n photo(s) of this job. Changes re-crop them at once.</source>
        <translation>
            <numerusform>Used by %n photo of this job. Changes re-crop them at once.</numerusform>
            <numerusform>Used by %n photos of this job. Changes re-crop them at once.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1: %n photo(s)</source>
        <translation>
            <numerusform>%1: %n photo</numerusform>
            <numerusform>%1: %n photos</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>morva::RuleRow</name>
    <message numerus="yes">
        <source>%n photo(s)</source>
        <translation>
            <numerusform>%n photo</numerusform>
            <numerusform>%n photos</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>morva::RulesSheet</name>
    <message numerus="yes">
        <source>All %n photo(s) have a crop type</source>
        <translation>
            <numerusform>All %n photo have a crop type</numerusform>
            <numerusform>All %n photos have a crop type</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n photo(s) without a rule: their own crop type, or %1</source>
        <translation>
            <numerusform>%n photo without a rule: their own crop type, or %1</numerusform>
            <numerusform>%n photos without a rule: their own crop type, or %1</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>morva::StatusStrip</name>
    <message numerus="yes">
        <source>about %n s left</source>
        <translation>
            <numerusform>about %n s left</numerusform>
            <numerusform>about %n s left</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>about %n min left</source>
        <translation>
            <numerusform>about %n min left</numerusform>
            <numerusform>about %n min left</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n photo(s)</source>
        <translation>
            <numerusform>%n photo</numerusform>
            <numerusform>%n photos</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 · %n selected</source>
        <translation>
            <numerusform>%1 · %n selected</numerusform>
            <numerusform>%1 · %n selected</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>morva::WelcomeView</name>
    <message numerus="yes">
        <source>%n photo(s)</source>
        <translation>
            <numerusform>%n photo</numerusform>
            <numerusform>%n photos</numerusform>
        </translation>
    </message>
</context>
</TS>
