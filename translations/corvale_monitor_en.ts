<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>Monitor::Text</name>
    <message numerus="yes">
        <source>%n turn(s) of the event loop; one took %1 ms at most, and used the processor for %2 ms at most</source>
        <translation>
            <numerusform>%n turn of the event loop; it took %1 ms, and used the processor for %2 ms</numerusform>
            <numerusform>%n turns of the event loop; one took %1 ms at most, and used the processor for %2 ms at most</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The source works. It sent only %n reading(s) within %1 s.</source>
        <translation>
            <numerusform>The source works. It sent only %n reading within %1 s.</numerusform>
            <numerusform>The source works. It sent only %n readings within %1 s.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Read as %n channel(s), layout %1:</source>
        <translation>
            <numerusform>Read as %n channel, layout %1:</numerusform>
            <numerusform>Read as %n channels, layout %1:</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>the frame ends after %n row(s)</source>
        <translation>
            <numerusform>the frame ends after %n row</numerusform>
            <numerusform>the frame ends after %n rows</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n column(s) beyond the first %1 is/are left out</source>
        <translation>
            <numerusform>%n column beyond the first %1 is left out</numerusform>
            <numerusform>%n columns beyond the first %1 are left out</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>the image ends after %1 of %n value(s)</source>
        <translation>
            <numerusform>the image ends after %1 of %n value</numerusform>
            <numerusform>the image ends after %1 of %n values</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 is being compressed, and %n more file(s) is/are waiting. Nothing is lost if you do not wait.</source>
        <translation>
            <numerusform>%1 is being compressed, and one more file is waiting. Nothing is lost if you do not wait.</numerusform>
            <numerusform>%1 is being compressed, and %n more files are waiting. Nothing is lost if you do not wait.</numerusform>
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
        <source>%n line(s)</source>
        <translation>
            <numerusform>%n line</numerusform>
            <numerusform>%n lines</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n gap(s)</source>
        <translation>
            <numerusform>%n gap</numerusform>
            <numerusform>%n gaps</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1: %n line(s) could not be used; --check shows it/them</source>
        <translation>
            <numerusform>%1: %n line could not be used; --check shows it</numerusform>
            <numerusform>%1: %n lines could not be used; --check shows them</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n more place(s)</source>
        <translation>
            <numerusform>%n more place</numerusform>
            <numerusform>%n more places</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n cell(s) is/are not wired</source>
        <translation>
            <numerusform>%n cell is not wired</numerusform>
            <numerusform>%n cells are not wired</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n reading(s) belong(s) to no cell</source>
        <translation>
            <numerusform>%n reading belongs to no cell</numerusform>
            <numerusform>%n readings belong to no cell</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n spot(s): mean X %1, Y %2 mm; sigma X %3, Y %4 mm; worst %5 mm</source>
        <translation>
            <numerusform>%n spot: mean X %1, Y %2 mm; sigma X %3, Y %4 mm; worst %5 mm</numerusform>
            <numerusform>%n spots: mean X %1, Y %2 mm; sigma X %3, Y %4 mm; worst %5 mm</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>; %n spot(s) without a place, a dose or a width is/are not compared</source>
        <translation>
            <numerusform>; %n spot without a place, a dose or a width is not compared</numerusform>
            <numerusform>; %n spots without a place, a dose or a width are not compared</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>it has %n reading(s), the stream %1</source>
        <translation>
            <numerusform>it has %n reading, the stream %1</numerusform>
            <numerusform>it has %n readings, the stream %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n line(s) (%1)</source>
        <translation>
            <numerusform>%n line (%1)</numerusform>
            <numerusform>%n lines (%1)</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n reading(s) was/were lost here because the disk was full</source>
        <translation>
            <numerusform>%n reading was lost here because the disk was full</numerusform>
            <numerusform>%n readings were lost here because the disk was full</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n more limit crossing(s)</source>
        <translation>
            <numerusform>%n more limit crossing</numerusform>
            <numerusform>%n more limit crossings</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n reading(s) later</source>
        <translation>
            <numerusform>%n reading later</numerusform>
            <numerusform>%n readings later</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>WARNING %n more event(s) is/are not listed</source>
        <translation>
            <numerusform>WARNING %n more event is not listed</numerusform>
            <numerusform>WARNING %n more events are not listed</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n more event(s) is/are not recorded</source>
        <translation>
            <numerusform>%n more event is not recorded</numerusform>
            <numerusform>%n more events are not recorded</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>the recording %1 is incomplete, %n reading(s) is/are missing%2</source>
        <translation>
            <numerusform>the recording %1 is incomplete, %n reading is missing%2</numerusform>
            <numerusform>the recording %1 is incomplete, %n readings are missing%2</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>none of its %n reading(s) lies in the times that were asked for</source>
        <translation>
            <numerusform>its only reading does not lie in the times that were asked for</numerusform>
            <numerusform>none of its %n readings lies in the times that were asked for</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>none of its %n line(s) can be read; the first was %1; a row must be t,v1,v2,... with decimal points, or --import must say how it is written</source>
        <translation>
            <numerusform>its only line cannot be read: %1; a row must be t,v1,v2,... with decimal points, or --import must say how it is written</numerusform>
            <numerusform>none of its %n lines can be read; the first was %1; a row must be t,v1,v2,... with decimal points, or --import must say how it is written</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>WARNING %n reading(s) came while the program was busy, and is/are lost</source>
        <translation>
            <numerusform>WARNING %n reading came while the program was busy, and is lost</numerusform>
            <numerusform>WARNING %n readings came while the program was busy, and are lost</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>WARNING %n more line(s) of the source is/are not listed</source>
        <translation>
            <numerusform>WARNING %n more line of the source is not listed</numerusform>
            <numerusform>WARNING %n more lines of the source are not listed</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>WARNING %n channel(s) beyond the first %1 is/are left out</source>
        <translation>
            <numerusform>WARNING %n channel beyond the first %1 is left out</numerusform>
            <numerusform>WARNING %n channels beyond the first %1 are left out</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>WARNING %n part(s) of the recording is/are played after the part before, which ended later than it/they claim(s) to have begun</source>
        <translation>
            <numerusform>WARNING %n part of the recording is played after the part before, which ended later than it claims to have begun</numerusform>
            <numerusform>WARNING %n parts of the recording are played after the part before, which ended later than they claim to have begun</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>the mean of the last %n reading(s)</source>
        <translation>
            <numerusform>the last reading</numerusform>
            <numerusform>the mean of the last %n readings</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n reading(s) was/were cleared from the displays. For a minute it/they can be brought back (%1).</source>
        <translation>
            <numerusform>%n reading was cleared from the displays. For a minute it can be brought back (%1).</numerusform>
            <numerusform>%n readings were cleared from the displays. For a minute they can be brought back (%1).</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n reading(s) was/were saved to %1</source>
        <translation>
            <numerusform>%n reading was saved to %1</numerusform>
            <numerusform>%n readings were saved to %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n column(s) beyond the first %1 is/are left out; a stream of frames may have more</source>
        <translation>
            <numerusform>%n column beyond the first %1 is left out; a stream of frames may have more</numerusform>
            <numerusform>%n columns beyond the first %1 are left out; a stream of frames may have more</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n bad line(s)</source>
        <translation>
            <numerusform>%n bad line</numerusform>
            <numerusform>%n bad lines</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>PAUSED, %n reading(s) wait(s)</source>
        <translation>
            <numerusform>PAUSED, %n reading waits</numerusform>
            <numerusform>PAUSED, %n readings wait</numerusform>
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
        <source>%n more bad line(s)</source>
        <translation>
            <numerusform>%n more bad line</numerusform>
            <numerusform>%n more bad lines</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n more connection change(s)</source>
        <translation>
            <numerusform>%n more connection change</numerusform>
            <numerusform>%n more connection changes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1: none of %n line(s) could be read; the first was %2. A line must be t,v1,v2,... with decimal points.</source>
        <translation>
            <numerusform>%1: its only line could not be read: %2. A line must be t,v1,v2,... with decimal points.</numerusform>
            <numerusform>%1: none of %n lines could be read; the first was %2. A line must be t,v1,v2,... with decimal points.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>All %n layer(s)</source>
        <translation>
            <numerusform>One layer</numerusform>
            <numerusform>All %n layers</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Subtracts the mean of the last %n reading(s) of each channel from what is shown.</source>
        <translation>
            <numerusform>Subtracts the last reading of each channel from what is shown.</numerusform>
            <numerusform>Subtracts the mean of the last %n readings of each channel from what is shown.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n byte(s) of text is/are lost</source>
        <translation>
            <numerusform>%n byte of text is lost</numerusform>
            <numerusform>%n bytes of text are lost</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>the last %n byte(s) of the compressed file</source>
        <translation>
            <numerusform>the last byte of the compressed file</numerusform>
            <numerusform>the last %n bytes of the compressed file</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n byte(s) of the compressed file</source>
        <translation>
            <numerusform>%n byte of the compressed file</numerusform>
            <numerusform>%n bytes of the compressed file</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n more in the log</source>
        <translation>
            <numerusform>%n more in the log</numerusform>
            <numerusform>%n more in the log</numerusform>
        </translation>
    </message>
</context>
</TS>
