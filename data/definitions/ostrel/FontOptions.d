! Font cards and packs: the fonts that each holds, with the section of OptionalFont.d for each.

[Ostrel Font Card]
Serif=OptionalFont:Serif
Serif Bold=OptionalFont:Serif Bold
Large Digits=OptionalFont:Large Digits

[East Asian Font Pack]
Gothic=OptionalFont:Gothic
Mincho=OptionalFont:Mincho
