<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>EventsPage</name>
    <message numerus="yes">
        <source>%n events</source>
        <translation>
            <numerusform>%n event</numerusform>
            <numerusform>%n events</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>LivePage</name>
    <message numerus="yes">
        <source>%n cameras</source>
        <translation>
            <numerusform>%n camera</numerusform>
            <numerusform>%n cameras</numerusform>
        </translation>
    </message>
</context>
</TS>
