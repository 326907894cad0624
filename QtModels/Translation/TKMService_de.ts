<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>AddToTKGroupCmd</name>
    <message>
        <source>Add to Group</source>
        <translation>Zur Gruppe hinzufügen</translation>
    </message>
</context>
<context>
    <name>CreateTKGroupCmd</name>
    <message>
        <source>Create Group</source>
        <translation>Gruppe erstellen</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>Gruppe</translation>
    </message>
</context>
<context>
    <name>GroupSubjects</name>
    <message>
        <source>%1 (%2)</source>
        <comment>group and number of elements</comment>
        <translation>%1 (%2)</translation>
    </message>
    <message numerus="yes">
        <source>%n elements</source>
        <translation>
            <numerusform>%n Element</numerusform>
            <numerusform>%n Elemente</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n groups</source>
        <translation>
            <numerusform>%n Gruppe</numerusform>
            <numerusform>%n Gruppen</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 → %2</source>
        <comment>what goes into a group</comment>
        <translation>%1 → %2</translation>
    </message>
    <message>
        <source>%1 → before %2</source>
        <translation>%1 → vor %2</translation>
    </message>
    <message>
        <source>%1 → after %2</source>
        <translation>%1 → nach %2</translation>
    </message>
</context>
<context>
    <name>MoveTKGroupElementsCmd</name>
    <message>
        <source>Move Elements</source>
        <translation>Elemente verschieben</translation>
    </message>
</context>
<context>
    <name>MoveTKGroupsCmd</name>
    <message>
        <source>Move Groups</source>
        <translation>Gruppen verschieben</translation>
    </message>
</context>
<context>
    <name>RemoveFromTKGroupCmd</name>
    <message>
        <source>Remove Point Collection(s) From Group</source>
        <translation>Punktsammlungen aus Gruppe entfernen</translation>
    </message>
</context>
<context>
    <name>RemoveTKGroupsCmd</name>
    <message>
        <source>Remove Group</source>
        <translation>Gruppe löschen</translation>
    </message>
</context>
<context>
    <name>RenameTKGroupCmd</name>
    <message>
        <source>Rename Group</source>
        <translation>Gruppe umbenennen</translation>
    </message>
</context>
<context>
    <name>SortTKGroupsAlphabeticallyCmd</name>
    <message>
        <source>Sort Groups</source>
        <translation>Gruppen sortieren</translation>
    </message>
</context>
<context>
    <name>Tarvik::GroupActions</name>
    <message>
        <source>&amp;New Group from Selection</source>
        <translation>&amp;Neue Gruppe aus Auswahl</translation>
    </message>
    <message>
        <source>&amp;Move to Group…</source>
        <translation>In Gruppe &amp;verschieben …</translation>
    </message>
    <message>
        <source>&amp;Remove from Group</source>
        <translation>Aus Gruppe &amp;entfernen</translation>
    </message>
    <message>
        <source>R&amp;ename</source>
        <translation>U&amp;mbenennen</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>&amp;Sort Groups</source>
        <translation>Gruppen &amp;sortieren</translation>
    </message>
    <message>
        <source>Move &amp;Up</source>
        <translation>Nach &amp;oben</translation>
    </message>
    <message>
        <source>Move Do&amp;wn</source>
        <translation>Nach &amp;unten</translation>
    </message>
</context>
<context>
    <name>Tarvik::GroupChooser</name>
    <message>
        <source>Move to Group</source>
        <translation>In Gruppe verschieben</translation>
    </message>
    <message>
        <source>Find a group</source>
        <translation>Gruppe suchen</translation>
    </message>
    <message>
        <source>Groups</source>
        <translation>Gruppen</translation>
    </message>
</context>
<context>
    <name>Tarvik::GroupEditorBase</name>
    <message>
        <source>This did not work, for an unknown reason.</source>
        <translation>Das ist aus unbekanntem Grund fehlgeschlagen.</translation>
    </message>
    <message>
        <source>A group needs a name.</source>
        <translation>Eine Gruppe braucht einen Namen.</translation>
    </message>
    <message>
        <source>Another group has this name.</source>
        <translation>Eine andere Gruppe hat diesen Namen.</translation>
    </message>
</context>
<context>
    <name>Tarvik::GroupItemModelBase</name>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Members</source>
        <translation>Mitglieder</translation>
    </message>
    <message>
        <source>A group or an element cannot be shown: %1</source>
        <translation>Eine Gruppe oder ein Element lässt sich nicht anzeigen: %1</translation>
    </message>
</context>
<context>
    <name>Tarvik::GroupNameEdit</name>
    <message>
        <source>Name of the group</source>
        <translation>Name der Gruppe</translation>
    </message>
</context>
<context>
    <name>Tarvik::GroupTreeView</name>
    <message>
        <source>Groups</source>
        <translation>Gruppen</translation>
    </message>
</context>
<context>
    <name>Tarvik::History</name>
    <message>
        <source>An error occurred</source>
        <translation>Ein Fehler ist aufgetreten</translation>
    </message>
    <message>
        <source>An error occurred in &quot;%1&quot;</source>
        <translation>Ein Fehler ist bei „%1“ aufgetreten</translation>
    </message>
    <message>
        <source>An error occurred before &quot;%1&quot;</source>
        <translation>Ein Fehler ist vor „%1“ aufgetreten</translation>
    </message>
    <message>
        <source>An error occurred at the end of several steps</source>
        <translation>Ein Fehler ist am Ende mehrerer Schritte aufgetreten</translation>
    </message>
    <message>
        <source>An error occurred while several steps were undone</source>
        <translation>Ein Fehler ist aufgetreten, als mehrere Schritte rückgängig gemacht wurden</translation>
    </message>
    <message>
        <source>The number of steps cannot be limited</source>
        <translation>Die Zahl der Schritte kann nicht begrenzt werden</translation>
    </message>
    <message>
        <source>The memory of the steps cannot be limited</source>
        <translation>Der Speicher der Schritte kann nicht begrenzt werden</translation>
    </message>
    <message>
        <source>An error occurred while &quot;%1&quot; was undone</source>
        <translation>Ein Fehler ist aufgetreten, als „%1“ rückgängig gemacht wurde</translation>
    </message>
    <message>
        <source>An error occurred while &quot;%1&quot; was redone</source>
        <translation>Ein Fehler ist aufgetreten, als „%1“ wiederhergestellt wurde</translation>
    </message>
    <message>
        <source>An error occurred while several steps were undone or redone</source>
        <translation>Ein Fehler ist aufgetreten, als mehrere Schritte rückgängig gemacht oder wiederhergestellt wurden</translation>
    </message>
    <message>
        <source>The state cannot be marked as saved</source>
        <translation>Der Zustand kann nicht als gespeichert vermerkt werden</translation>
    </message>
    <message>
        <source>The mark of the saved state cannot be removed</source>
        <translation>Der Vermerk des gespeicherten Zustands kann nicht entfernt werden</translation>
    </message>
    <message>
        <source>The steps cannot be forgotten</source>
        <translation>Die Schritte können nicht vergessen werden</translation>
    </message>
    <message>
        <source>there is not enough memory</source>
        <translation>es ist nicht genug Speicher frei</translation>
    </message>
    <message>
        <source>the cause is unknown</source>
        <translation>die Ursache ist unbekannt</translation>
    </message>
</context>
<context>
    <name>Tarvik::HistoryAction</name>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederherstellen</translation>
    </message>
    <message>
        <source>Undo %1</source>
        <translation>Rückgängig: %1</translation>
    </message>
    <message>
        <source>Redo %1</source>
        <translation>Wiederherstellen: %1</translation>
    </message>
</context>
<context>
    <name>Tarvik::HistoryModel</name>
    <message>
        <source>&lt;empty&gt;</source>
        <translation>&lt;leer&gt;</translation>
    </message>
</context>
</TS>
