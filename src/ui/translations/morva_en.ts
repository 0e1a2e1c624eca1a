<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
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
</TS>
