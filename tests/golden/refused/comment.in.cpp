int x;
/* no end
