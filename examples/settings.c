/* Reads "key = value" lines into a table. */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#define MAX_LINE 256
#define SKIP(p) while(*p==' '||*p=='\t') \
                    ++p

struct setting{ char* key;
char* value;
  struct setting* next; };

enum result{ ok=0,
no_file=1,
   bad_line=2, // no equals sign
out_of_memory=30 };

static struct setting* first=NULL;
static const char* names[]={ "host", "port",
"user", "language" };
unsigned long lines_read=0;
int verbose=1;

static char *copy(const char *text,size_t length){
  char *result=(char*)malloc(length+1);
  if(result==NULL)return NULL;
  memcpy(result,text,length);
  result[length]='\0';
  return result;
}

static enum result add(const char* line){
  const char *p=line;
  const char *end;
  struct setting *s;
  SKIP(p);
  end=strchr(p,'=');
  if(!end) return bad_line;
  s=(struct setting*)malloc(sizeof(struct setting));
  if(s==NULL){ return out_of_memory; }
  s->key=copy(p,end-p);
  s->value=copy(end+1,strlen(end+1));
  s->next=first;
  first=s;
  return ok;
}

int read_settings(const char *path)
{
    char line[MAX_LINE];
    int state=ok;
    FILE* file=fopen(path,"r");
    if(!file) return no_file;
    do {
        if(fgets(line,sizeof(line),file)==NULL) break;
        if(line[0]=='#')
        continue;
        state=add(line);
        if(state==bad_line){ fprintf(stderr,"bad line: %s",line); }
        else if(state==out_of_memory) goto done;
        else lines_read++;
    }while(!feof(file));
done:
    fclose(file);
    return state;
}
