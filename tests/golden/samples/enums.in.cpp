enum keyword{ASM,AUTO,BREAK};

enum Colour{red=1,yellow=2,green=3,purple=4};

