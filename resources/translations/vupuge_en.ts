<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>Vupuge</name>
    <message numerus="yes">
        <source>%Ln notebooks checked</source>
        <translation>
            <numerusform>%Ln notebook checked</numerusform>
            <numerusform>%Ln notebooks checked</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln notes</source>
        <translation>
            <numerusform>%Ln note</numerusform>
            <numerusform>%Ln notes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln notes were imported.</source>
        <translation>
            <numerusform>%Ln note was imported.</numerusform>
            <numerusform>%Ln notes were imported.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln notes were skipped.</source>
        <translation>
            <numerusform>%Ln note was skipped.</numerusform>
            <numerusform>%Ln notes were skipped.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>There are %Ln remarks on notes that came across.</source>
        <translation>
            <numerusform>There is %Ln remark on notes that came across.</numerusform>
            <numerusform>There are %Ln remarks on notes that came across.</numerusform>
        </translation>
    </message>
</context>
</TS>
