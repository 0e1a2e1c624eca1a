<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>morva::ExportSheet</name>
    <message numerus="yes">
        <source>files to write</source>
        <translation>
            <numerusform>files to write</numerusform>
            <numerusform>files to write</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>unchanged, skipped</source>
        <translation>
            <numerusform>unchanged, skipped</numerusform>
            <numerusform>unchanged, skipped</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>no face / errors</source>
        <translation>
            <numerusform>no face / errors</numerusform>
            <numerusform>no face / errors</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n photo(s) are not cropped yet and are left out.</source>
        <translation>
            <numerusform>%n photo are not cropped yet and are left out.</numerusform>
            <numerusform>%n photos are not cropped yet and are left out.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Leaves out the %n photo(s) that are ready but not approved</source>
        <translation>
            <numerusform>Leaves out the %n photo that are ready but not approved</numerusform>
            <numerusform>Leaves out the %n photos that are ready but not approved</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Writes the %n unchanged photo(s) again</source>
        <translation>
            <numerusform>Writes the %n unchanged photo again</numerusform>
            <numerusform>Writes the %n unchanged photos again</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Export %n File(s)</source>
        <translation>
            <numerusform>Export %n File</numerusform>
            <numerusform>Export %n Files</numerusform>
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
        <translation type="unfinished">
            <numerusform>%n photo</numerusform>
            <numerusform>%n photos</numerusform>
        </translation>
    </message>
</context>
</TS>
