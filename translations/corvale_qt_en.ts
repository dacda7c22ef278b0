<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>Corvale_Qt</name>
    <message numerus="yes">
        <source> frame(s)</source>
        <translation>
            <numerusform> frame</numerusform>
            <numerusform> frames</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>average of %n frame(s)</source>
        <translation>
            <numerusform>average of %n frame</numerusform>
            <numerusform>average of %n frames</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>taking the background: %n frame(s) to come</source>
        <translation>
            <numerusform>taking the background: %n frame to come</numerusform>
            <numerusform>taking the background: %n frames to come</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>background of %n frame(s) subtracted</source>
        <translation>
            <numerusform>background of %n frame subtracted</numerusform>
            <numerusform>background of %n frames subtracted</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>background of %n frame(s) not subtracted</source>
        <translation>
            <numerusform>background of %n frame not subtracted</numerusform>
            <numerusform>background of %n frames not subtracted</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n reading(s) belong to no cell: %1 left out</source>
        <translation>
            <numerusform>%n reading belongs to no cell: %1 left out</numerusform>
            <numerusform>%n readings belong to no cell: %1 left out</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n width(s)</source>
        <translation>
            <numerusform>%n width</numerusform>
            <numerusform>%n widths</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n cell(s)</source>
        <translation>
            <numerusform>%n cell</numerusform>
            <numerusform>%n cells</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n position(s)</source>
        <translation>
            <numerusform>%n position</numerusform>
            <numerusform>%n positions</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n number(s)</source>
        <translation>
            <numerusform>%n number</numerusform>
            <numerusform>%n numbers</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n reading(s)</source>
        <translation>
            <numerusform>%n reading</numerusform>
            <numerusform>%n readings</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n name(s)</source>
        <translation>
            <numerusform>%n name</numerusform>
            <numerusform>%n names</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n entry/entries</source>
        <translation>
            <numerusform>%n entry</numerusform>
            <numerusform>%n entries</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n channel(s)</source>
        <translation>
            <numerusform>%n channel</numerusform>
            <numerusform>%n channels</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>the detector has %n reading(s), the stream %1</source>
        <translation>
            <numerusform>the detector has %n reading, the stream %1</numerusform>
            <numerusform>the detector has %n readings, the stream %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1
%n sample(s) would go.</source>
        <translation>
            <numerusform>%1
%n sample would go.</numerusform>
            <numerusform>%1
%n samples would go.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::HoverCursor</name>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>and %n more</numerusform>
            <numerusform>and %n more</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVXScopePlotView</name>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>and %n more</numerusform>
            <numerusform>and %n more</numerusform>
        </translation>
    </message>
</context>
</TS>
