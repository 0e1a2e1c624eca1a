<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>actions</name>
    <message>
        <source>&amp;Import…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Export…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save Re&amp;view List…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open Folder of P&amp;hotos</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Open Result Folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Re&amp;name Job</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Re&amp;move Job</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Crop Photos</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Re-anal&amp;yze</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ca&amp;ncel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Re&amp;view</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Approve All &amp;Ready</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Take Back Approval</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Backdrops…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Teach a &amp;Pose…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edit R&amp;ules…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Before / After</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zoom &amp;In</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zoom &amp;Out</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Fit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Sidebar</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Right Panel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Preset</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>P&amp;hoto</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Larger Thumbnails</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>S&amp;maller Thumbnails</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>High &amp;Contrast</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>F&amp;ull Screen</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Keyboard Shortcuts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;About Morva</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Photos</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Crops school portraits, a folder at a time.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A folder of portraits.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Where jobs and presets are kept.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Where measurements and thumbnails are kept.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>morva::Actions</name>
    <message>
        <source>Crop &amp;Type</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Recent &amp;Folders</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>S&amp;how</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The Job&apos;s</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Redo %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>morva::FilterBar</name>
    <message numerus="yes">
        <source>%1: %n photo(s)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>Which photos are shown</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Size of thumbnails</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>morva::JobList</name>
    <message numerus="yes">
        <source>%n photo(s)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n cropped</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>%1 · %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not cropped</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n not cropped</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n to review</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>exported</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>all approved</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n ready</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>morva::JobSidebar</name>
    <message>
        <source>Each folder you import becomes a job and stays here with its crops.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Jobs</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Import a folder of portraits</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New job</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Type to find a job, F2 renames it</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>morva::MainToolbar</name>
    <message numerus="yes">
        <source>%n photo(s) to review</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Toolbar</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Grid</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Inspector</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>morva::MainWindow</name>
    <message>
        <source>%1 – Morva</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Undo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open Folder</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>morva::StatusStrip</name>
    <message>
        <source>move</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>zoom</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>turn</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Space</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>approve</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keys: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>about %n s left</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>about %n min left</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Progress</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No job open</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n photo(s)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%1 · %n selected</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>%1 photos/s</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>words</name>
    <message>
        <source>%1 %</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
